#include "numeric/triangulation/face_emission.h"

#include <cstdint>

namespace qnutil::triangulation {
namespace {

void append_vertex(const Point& p, std::vector<float>& out) {
  out.push_back(to_float(p.x));
  out.push_back(to_float(p.y));
}

}  // namespace

void emit_faces(const QuadEdgeMesh& mesh, const std::vector<Point>& vertices, VertexId first_corner,
                const BoundaryClip& clip, std::vector<float>& out) {
  std::vector<std::uint8_t> visited(mesh.record_count(), 0);  // bit d: primal direction d walked
  std::vector<VertexId> face;
  for (std::size_t record = 0; record < mesh.record_count(); ++record) {
    if (!mesh.alive(record)) continue;
    for (int direction = 0; direction < 2; ++direction) {
      if (visited[record] & (1u << direction)) continue;
      const EdgeRef start = QuadEdgeMesh::primal(record, direction);
      face.clear();
      bool touches_corner = false, only_corners = true;
      EdgeRef e = start;
      do {
        visited[e >> 2] |= static_cast<std::uint8_t>(1u << ((e >> 1) & 1u));
        const VertexId v = mesh.origin(e);
        face.push_back(v);
        touches_corner = touches_corner || v >= first_corner;
        only_corners = only_corners && v >= first_corner;
        e = mesh.lnext(e);
      } while (e != start);
      if (only_corners || face.size() < 3) continue;
      if (!touches_corner) {
        for (std::size_t k = 2; k < face.size(); ++k) {
          append_vertex(vertices[face[0]], out);
          append_vertex(vertices[face[k - 1]], out);
          append_vertex(vertices[face[k]], out);
        }
      } else {
        clip.clip({vertices[face[0]], vertices[face[1]], vertices[face[2]]}, out);
      }
    }
  }
}

}  // namespace qnutil::triangulation
