#include "numeric/triangulation/ring_edges.h"

namespace qnutil::triangulation::region {
namespace {

constexpr VertexId kNoVertex = UINT32_MAX;

// For x on the line through a and b: whether it lies on b's side of a.
bool towards(const Point& a, const Point& x, const Point& b) {
  if (b.x != a.x) return (x.x > a.x) == (b.x > a.x);
  return (x.y > a.y) == (b.y > a.y);
}

}  // namespace

// How a segment leaves its first vertex: along an edge to a vertex on the
// segment (`vertex`, with `side` running from a to it), or into the side
// `side` of a triangle at a, which it crosses.
struct RingEdgeInserter::Exit {
  VertexId vertex;
  Side side;
};

RingEdgeInserter::Exit RingEdgeInserter::leave(VertexId a, VertexId b) const {
  // Most ring edges are edges already: look for b among a's neighbours
  // before turning to geometry.
  if (const Side existing = mesh_.find_side(a, b); existing != kNoSide) return {b, existing};
  const Point& pa = mesh_.point(a);
  const Point& pb = mesh_.point(b);
  Exit exit{kNoVertex, kNoSide};  // found below: the triangles around a cover every direction
  mesh_.for_each_around(a, [&](TriangleId t, unsigned k) {
    const MeshTriangle& triangle = mesh_.triangles()[t];
    const VertexId x = triangle.corner[next_index(k)], y = triangle.corner[previous_index(k)];
    const int turn = orientation(pa, mesh_.point(x), pb);
    if (turn == 0 && towards(pa, mesh_.point(x), pb)) {
      exit = {x, side_of(t, previous_index(k))};
      return true;
    }
    if (turn > 0 && orientation(pa, mesh_.point(y), pb) < 0) {
      exit = {kNoVertex, side_of(t, k)};
      return true;
    }
    return false;
  });
  return exit;
}

bool RingEdgeInserter::insert(VertexId a, VertexId b) {
  const Point pb = mesh_.point(b);
  while (a != b) {
    const Point pa = mesh_.point(a);
    const Exit exit = leave(a, b);
    if (exit.vertex != kNoVertex) {
      mesh_.mark(exit.side, kConstrained, kOddCrossing);
      a = exit.vertex;
      continue;
    }
    // Walk along the segment through the sides it crosses, up to the first
    // vertex on it. Each crossed side runs from the segment's right to its left.
    crossing_.clear();
    Side s = exit.side;
    VertexId stop;
    for (;;) {
      if ((mesh_.flags(s) & kConstrained) != 0) return false;
      crossing_.emplace_back(mesh_.origin(s), mesh_.destination(s));
      const Side beyond = mesh_.across(s);
      const VertexId r = mesh_.corner(beyond);
      const int turn = orientation(pa, pb, mesh_.point(r));
      if (turn == 0) {
        stop = r;
        break;
      }
      s = side_of(triangle_of(beyond),
                  turn > 0 ? next_index(index_of(beyond)) : previous_index(index_of(beyond)));
    }
    clear_crossings(a, stop);
    mesh_.mark(mesh_.find_side(a, stop), kConstrained, kOddCrossing);
    mesh_.restore_delaunay(fresh_);
    a = stop;
  }
  return true;
}

// Flips the crossing edges away one by one (Sloan): an edge whose two
// triangles form a convex quadrilateral is flipped, one that does not waits
// for its neighbours; as long as no vertex lies on the open segment some
// edge is always flippable. Flipped edges that no longer cross are kept for
// the Delaunay repair.
void RingEdgeInserter::clear_crossings(VertexId a, VertexId b) {
  const Point& pa = mesh_.point(a);
  const Point& pb = mesh_.point(b);
  fresh_.clear();
  while (!crossing_.empty()) {
    const auto [x, y] = crossing_.front();
    crossing_.pop_front();
    const Side s = mesh_.find_side(x, y);
    const VertexId p = mesh_.corner(s), q = mesh_.corner(mesh_.across(s));
    const Point &pp = mesh_.point(p), &pq = mesh_.point(q);
    if (orientation(pp, pq, mesh_.point(x)) >= 0 || orientation(pp, pq, mesh_.point(y)) <= 0) {
      crossing_.emplace_back(x, y);
      continue;
    }
    mesh_.flip(s);
    if (orientation(pa, pb, pp) * orientation(pa, pb, pq) < 0) {
      crossing_.emplace_back(p, q);
    } else {
      fresh_.emplace_back(p, q);
    }
  }
}

}  // namespace qnutil::triangulation::region
