#include "numeric/triangulation/face_emission.h"

namespace qnutil::triangulation {
namespace {

void append_vertex(const Point& p, std::vector<float>& out) {
  out.push_back(to_float(p.x));
  out.push_back(to_float(p.y));
}

}  // namespace

void emit_faces(QuadEdgeMesh& mesh, VertexId first_corner, const BoundaryClip& clip, std::vector<float>& out) {
  std::vector<EdgeRef> face;  // edges of the face, in walk order from their origins
  for (std::size_t record = 0; record < mesh.record_count(); ++record) {
    if (!mesh.alive(record)) continue;
    for (int direction = 0; direction < 2; ++direction) {
      const EdgeRef start = QuadEdgeMesh::primal(record, direction);
      if (mesh.visited(start)) continue;
      face.clear();
      bool touches_corner = false, only_corners = true;
      EdgeRef e = start;
      do {
        mesh.mark_visited(e);
        face.push_back(e);
        const bool corner = mesh.origin(e) >= first_corner;
        touches_corner = touches_corner || corner;
        only_corners = only_corners && corner;
        e = mesh.lnext(e);
      } while (e != start);
      if (only_corners || face.size() < 3) continue;
      if (!touches_corner) {
        for (std::size_t k = 2; k < face.size(); ++k) {
          append_vertex(mesh.origin_point(face[0]), out);
          append_vertex(mesh.origin_point(face[k - 1]), out);
          append_vertex(mesh.origin_point(face[k]), out);
        }
      } else {
        clip.clip({mesh.origin_point(face[0]), mesh.origin_point(face[1]), mesh.origin_point(face[2])}, out);
      }
    }
  }
}

}  // namespace qnutil::triangulation
