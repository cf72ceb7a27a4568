#include "numeric/triangulation/delaunay_builder.h"

#include <cmath>
#include <utility>

#include "numeric/triangulation/walk_prefetcher.h"

namespace qnutil::triangulation {
namespace {

constexpr double kDuplicateTolerance = 1e-5;

}  // namespace

DelaunayBuilder::DelaunayBuilder(const std::vector<Point>& vertices,
                                 const std::array<Point, 3>& corners, const Point& points_min,
                                 const Point& points_max, std::size_t expected_points)
    : vertices_(vertices), mesh_(corners), index_(points_min, points_max, expected_points) {
  // A triangulation of k points has at most 3k - 6 edges; each point that
  // falls on an edge leaves one dead record behind.
  mesh_.reserve(3 * (expected_points + 3) + expected_points / 8 + 8);
  const EdgeRef ab = mesh_.make_edge(QuadEdgeMesh::corner(0), QuadEdgeMesh::corner(1));
  const EdgeRef bc = mesh_.make_edge(QuadEdgeMesh::corner(1), QuadEdgeMesh::corner(2));
  mesh_.splice(QuadEdgeMesh::sym(ab), bc);
  const EdgeRef ca = mesh_.make_edge(QuadEdgeMesh::corner(2), QuadEdgeMesh::corner(0));
  mesh_.splice(QuadEdgeMesh::sym(bc), ca);
  mesh_.splice(QuadEdgeMesh::sym(ca), ab);
  starting_edge_ = ab;
}

bool DelaunayBuilder::random_bit() {
  random_state_ ^= random_state_ << 13;
  random_state_ ^= random_state_ >> 17;
  random_state_ ^= random_state_ << 5;
  return (random_state_ & 1u) != 0;
}

// The walk starts at whichever is nearer: `near` if still in the mesh, else
// the edge the index offers; or the vertex inserted last (inputs often
// arrive in spatial order).
EdgeRef DelaunayBuilder::walk_start(const Point& p, EdgeRef near) const {
  const EdgeRef last = QuadEdgeMesh::sym(starting_edge_);
  const EdgeRef indexed =
      near != VertexIndex::kNone && mesh_.alive(near) ? near : index_.near(p, mesh_);
  if (indexed == VertexIndex::kNone) return last;
  const double last_distance = squared_distance(mesh_.origin_point(last), p);
  return squared_distance(mesh_.origin_point(indexed), p) < last_distance ? indexed : last;
}

// Visibility walk: cross any edge that has p strictly on its far side. The
// edge tested first is picked at random, which rules out the endless cycles
// a fixed order can run into; a scan of all faces backs up a walk that
// still takes longer than the mesh is large. When p lies on the start edge's
// line the walk begins on the far side of it: in row-ordered input the next
// point continues the line through the last ones, and the faces below the
// new row fan out round the last vertex, a long way round from that side.
EdgeRef DelaunayBuilder::locate(const Point& p, EdgeRef e) {
  if (orientation_of(e, p) <= 0) e = QuadEdgeMesh::sym(e);
  const std::size_t step_limit = 64 + 2 * mesh_.record_count();
  for (std::size_t steps = 0; steps < step_limit; ++steps) {
    EdgeRef first = mesh_.lnext(e);
    EdgeRef second = mesh_.lnext(first);
    if (random_bit()) std::swap(first, second);
    if (orientation_of(first, p) < 0) {
      e = QuadEdgeMesh::sym(first);
    } else if (orientation_of(second, p) < 0) {
      e = QuadEdgeMesh::sym(second);
    } else {
      return e;
    }
  }
  return locate_by_scan(p);
}

bool DelaunayBuilder::left_face_contains(EdgeRef e, const Point& p) const {
  const EdgeRef e1 = mesh_.lnext(e);
  const EdgeRef e2 = mesh_.lnext(e1);
  if (mesh_.lnext(e2) != e) return false;
  const Point o = mesh_.origin_point(e);
  const Point d = mesh_.destination_point(e);
  const Point w = mesh_.destination_point(e1);
  return orientation(o, d, w) > 0 && orientation(o, d, p) >= 0 && orientation(d, w, p) >= 0 &&
         orientation(w, o, p) >= 0;
}

EdgeRef DelaunayBuilder::locate_by_scan(const Point& p) const {
  for (std::size_t record = 0; record < mesh_.record_count(); ++record) {
    for (int direction = 0; direction < 2; ++direction) {
      const EdgeRef e = QuadEdgeMesh::primal(record, direction);
      if (mesh_.alive(e) && left_face_contains(e, p)) return e;
    }
  }
  return starting_edge_;  // unreachable for points inside the enclosing triangle
}

// The duplicate rule compares with the corners of the face found; a point
// that coincides exactly with a vertex always lands in a face of which that
// vertex is a corner, so exact repeats are always caught.
bool DelaunayBuilder::is_near_duplicate(const Point& p, EdgeRef face) const {
  EdgeRef e = face;
  do {
    const Point q = mesh_.origin_point(e);
    if (std::fabs(p.x - q.x) <= kDuplicateTolerance && std::fabs(p.y - q.y) <= kDuplicateTolerance)
      return true;
    e = mesh_.lnext(e);
  } while (e != face);
  return false;
}

// Below some 64k points (about 12 MB of records) the mesh stays in the
// caches, and the prefetching copy of the walk would only cost time.
void DelaunayBuilder::insert_all(const std::vector<VertexId>& order) {
  constexpr std::size_t kPrefetchFromPoints = std::size_t{1} << 16;
  const bool prefetching = order.size() >= kPrefetchFromPoints;
  WalkPrefetcher prefetcher(vertices_, order, index_, mesh_);
  for (std::size_t i = 0; i < order.size(); ++i) {
    EdgeRef near = VertexIndex::kNone;
    if (prefetching) {
      near = prefetcher.face_found(i);
      prefetcher.advance(i);
    }
    insert(order[i], near);
  }
}

void DelaunayBuilder::insert(VertexId v, EdgeRef near) {
  const Point& p = vertices_[v];
  EdgeRef e = locate(p, walk_start(p, near));
  if (is_near_duplicate(p, e)) return;
  // p is not a corner, so at most one edge of the face passes through it.
  if (orientation_of(mesh_.lnext(e), p) == 0) {
    e = mesh_.lnext(e);
  } else if (orientation_of(mesh_.lprev(e), p) == 0) {
    e = mesh_.lprev(e);
  }
  if (orientation_of(e, p) == 0) {
    // On an edge: remove it so that p lies inside the quadrilateral of the
    // two faces it separated.
    const EdgeRef on = e;
    e = mesh_.oprev(e);
    mesh_.delete_edge(on);
  }
  EdgeRef base = mesh_.make_edge(mesh_.origin(e), QuadEdgeMesh::stored(p));
  mesh_.splice(base, e);
  starting_edge_ = base;
  do {
    base = mesh_.connect(e, QuadEdgeMesh::sym(base));
    e = mesh_.oprev(base);
  } while (mesh_.lnext(e) != starting_edge_);
  restore_delaunay(v, e);
  index_.add(QuadEdgeMesh::sym(starting_edge_), p);
}

// Walks the edges opposite the new point; an edge whose far vertex lies in
// the circle through the new point and the edge's ends is swapped, which
// brings two more edges under suspicion. Points on the circle stay, so the
// walk ends on every input, cocircular ones included. Every face is a proper
// triangle, so the far vertex lies right of an inner edge; beyond a side of
// the enclosing triangle lies its outer face, whose corners turn clockwise,
// and the in-circle test, its sign flipped, keeps that side (the new point
// lies inside the enclosing triangle's circle). No orientation test is needed.
void DelaunayBuilder::restore_delaunay(VertexId v, EdgeRef e) {
  const Point& p = vertices_[v];
  for (;;) {
    const EdgeRef t = mesh_.oprev(e);
    const Point far = mesh_.destination_point(t);
    if (in_circle(mesh_.origin_point(e), far, mesh_.destination_point(e), p) > 0) {
      mesh_.swap(e);
      e = mesh_.oprev(e);
    } else if (mesh_.onext(e) == starting_edge_) {
      return;
    } else {
      e = mesh_.lprev(mesh_.onext(e));
    }
  }
}

}  // namespace qnutil::triangulation
