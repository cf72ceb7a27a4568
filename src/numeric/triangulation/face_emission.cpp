#include "numeric/triangulation/face_emission.h"

namespace qnutil::triangulation {
namespace {

// How many records ahead the third corner of a face is fetched: the faces'
// records lie scattered over the whole mesh, so their loads are started
// early enough to overlap.
constexpr std::size_t kPrefetchDistance = 16;

// Whether the face left of e is collected at e. Reads e's record only.
bool collected_at(const QuadEdgeMesh& mesh, EdgeRef e) {
  return mesh.alive(e) && mesh.lnext(e) > e && mesh.lprev(e) > e;
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
void emit_faces(const QuadEdgeMesh& mesh, const BoundaryClip& clip, TriangleArray& out) {
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
      const StoredVertex& v0 = mesh.origin(e);
      const StoredVertex& v1 = mesh.destination(e);
      const StoredVertex& v2 = mesh.origin(mesh.lprev(e));
      const bool corner0 = QuadEdgeMesh::is_corner(v0);
      const bool corner1 = QuadEdgeMesh::is_corner(v1);
      const bool corner2 = QuadEdgeMesh::is_corner(v2);
      if (corner0 && corner1 && corner2) continue;
      if (!corner0 && !corner1 && !corner2) {
        // Inserted points are stored as the floats they came as.
        const float corners[6] = {v0.x, v0.y, v1.x, v1.y, v2.x, v2.y};
        out.append(corners);
      } else {
        clip.clip({mesh.point(v0), mesh.point(v1), mesh.point(v2)}, out);
      }
    }
  }
}

}  // namespace qnutil::triangulation
