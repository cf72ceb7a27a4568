#include "numeric/triangulation/face_emission.h"

namespace qnutil::triangulation {
namespace {

// How many records ahead the third corner of a face is fetched: the faces'
// records lie scattered over the whole mesh, so their loads are started
// early enough to overlap.
constexpr std::size_t kPrefetchDistance = 16;

// Whether the face left of e is collected at e. Reads e's record only.
bool collected_at(const QuadEdgeMesh& mesh, EdgeRef e) {
  return mesh.alive(e >> 2) && mesh.lnext(e) > e && mesh.lprev(e) > e;
}

void append_vertex(const Point& p, std::vector<float>& out) {
  out.push_back(to_float(p.x));
  out.push_back(to_float(p.y));
}

}  // namespace

// Every face of the subdivision is a triangle: it starts as one, an
// insertion splits the face it lands in (or the two faces around the edge it
// lands on) into triangles, and a swap turns two triangles into two others.
// The three edges of the face left of e are therefore e, lnext(e) and
// lprev(e), all named in e's own record, and the face is collected at e
// exactly when e comes first among them in collection order, which is the
// order of the edge numbers. Only the third corner needs a look at another
// record.
void emit_faces(const QuadEdgeMesh& mesh, const BoundaryClip& clip, std::vector<float>& out) {
  const std::size_t records = mesh.record_count();
  for (std::size_t record = 0; record < records; ++record) {
    if (record + kPrefetchDistance < records) {
      for (int direction = 0; direction < 2; ++direction) {
        const EdgeRef ahead = QuadEdgeMesh::primal(record + kPrefetchDistance, direction);
        if (collected_at(mesh, ahead)) mesh.prefetch(mesh.lprev(ahead));
      }
    }
    for (int direction = 0; direction < 2; ++direction) {
      const EdgeRef e = QuadEdgeMesh::primal(record, direction);
      if (!collected_at(mesh, e)) continue;
      const EdgeRef last = mesh.lprev(e);
      const bool corner0 = QuadEdgeMesh::is_corner(mesh.origin(e));
      const bool corner1 = QuadEdgeMesh::is_corner(mesh.destination(e));
      const bool corner2 = QuadEdgeMesh::is_corner(mesh.origin(last));
      if (corner0 && corner1 && corner2) continue;
      const Point p0 = mesh.origin_point(e);
      const Point p1 = mesh.destination_point(e);
      const Point p2 = mesh.origin_point(last);
      if (!corner0 && !corner1 && !corner2) {
        append_vertex(p0, out);
        append_vertex(p1, out);
        append_vertex(p2, out);
      } else {
        clip.clip({p0, p1, p2}, out);
      }
    }
  }
}

}  // namespace qnutil::triangulation
