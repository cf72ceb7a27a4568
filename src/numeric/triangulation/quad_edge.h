// Quad-edge subdivision (Guibas and Stolfi) with index links: every
// undirected edge is one record of four directed edges (the two primal
// directions and the two dual ones), and a directed edge is named by
// record * 4 + rotation. Each record also carries its two end points, so
// that geometric tests along a walk touch one record per edge, and a record
// takes 32 bytes, two to a cache line: on a mesh far larger than the caches
// the time goes into loading records. Records are kept in creation order; a
// deleted record stays in place, so that the order of the remaining records
// is the order in which they were made.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/triangulation/large_block_allocator.h"
#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/prefetch.h"

namespace qnutil::triangulation {

using EdgeRef = std::uint32_t;
using VertexId = std::uint32_t;

// A vertex as a record holds it. Inserted points come from float input and
// are kept as floats without loss; the enclosing triangle's corners need
// doubles and are kept by the mesh, a record naming them by a NaN whose low
// bits are the corner's number.
struct StoredVertex {
  float x;
  float y;
};

class QuadEdgeMesh {
 public:
  // `corners` are the enclosing triangle's corners 0, 1, 2.
  explicit QuadEdgeMesh(const std::array<Point, 3>& corners) : corners_(corners) {}

  void reserve(std::size_t records) { records_.reserve(records); }

  // `p` must be a pair of floats widened to doubles.
  static StoredVertex stored(const Point& p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
  }
  static StoredVertex corner(unsigned number) {
    return {std::bit_cast<float>(kCornerBits | number), 0.0f};
  }
  static bool is_corner(const StoredVertex& v) { return v.x != v.x; }
  Point point(const StoredVertex& v) const {
    return is_corner(v) ? corners_[std::bit_cast<std::uint32_t>(v.x) & 3u] : Point{v.x, v.y};
  }

  // A new isolated edge from `from` to `to`.
  EdgeRef make_edge(const StoredVertex& from, const StoredVertex& to);
  // Joins or separates the origin rings of a and b (and their left faces).
  void splice(EdgeRef a, EdgeRef b) {
    const EdgeRef alpha = rot(onext(a));
    const EdgeRef beta = rot(onext(b));
    const EdgeRef a_next = onext(a), b_next = onext(b);
    const EdgeRef alpha_next = onext(alpha), beta_next = onext(beta);
    next(a) = b_next;
    next(b) = a_next;
    next(alpha) = beta_next;
    next(beta) = alpha_next;
  }
  // A new edge from a's destination to b's origin, sharing a's left face.
  EdgeRef connect(EdgeRef a, EdgeRef b);
  // Detaches e from the subdivision, which leaves its record dead.
  void delete_edge(EdgeRef e);
  // Turns e counter-clockwise inside the quadrilateral formed by its two
  // faces. Both faces are triangles, so the four other sides of the
  // quadrilateral are named in e's own record, and the rings that change
  // are written outright: the origin rings at the four corners and the two
  // face rings (the dual ring of x's left face holds inv_rot(lnext(x)) at
  // inv_rot(x)).
  void swap(EdgeRef e) {
    const EdgeRef s = sym(e);
    const EdgeRef f = lnext(e), g = lprev(e), h = lnext(s), k = lprev(s);
    const StoredVertex from = origin(k), to = origin(g);
    next(h) = sym(g);
    next(f) = sym(k);
    next(k) = e;
    next(e) = sym(h);
    next(g) = s;
    next(s) = sym(f);
    set_lnext(e, g);
    set_lnext(g, h);
    set_lnext(h, e);
    set_lnext(s, k);
    set_lnext(k, f);
    set_lnext(f, s);
    set_end_points(e, from, to);
  }

  static EdgeRef rot(EdgeRef e) { return (e & ~3u) | ((e + 1) & 3u); }
  static EdgeRef inv_rot(EdgeRef e) { return (e & ~3u) | ((e + 3) & 3u); }
  static EdgeRef sym(EdgeRef e) { return e ^ 2u; }
  EdgeRef onext(EdgeRef e) const { return records_[e >> 2].next[e & 3u]; }
  EdgeRef oprev(EdgeRef e) const { return rot(onext(rot(e))); }
  EdgeRef lnext(EdgeRef e) const { return rot(onext(inv_rot(e))); }
  EdgeRef lprev(EdgeRef e) const { return sym(onext(e)); }
  const StoredVertex& origin(EdgeRef e) const { return records_[e >> 2].end[(e >> 1) & 1u]; }
  const StoredVertex& destination(EdgeRef e) const { return origin(sym(e)); }
  Point origin_point(EdgeRef e) const { return point(origin(e)); }
  Point destination_point(EdgeRef e) const { return point(destination(e)); }

  std::size_t record_count() const { return records_.size(); }
  // Whether e's record is still in the mesh. Once the first triangle is made
  // every vertex has two edges or more, so only a deleted edge is alone in
  // its origin ring.
  bool alive(EdgeRef e) const { return records_[e >> 2].next[0] != (e & ~3u); }
  static EdgeRef primal(std::size_t record, int direction) {
    return static_cast<EdgeRef>(record * 4 + static_cast<std::size_t>(direction) * 2);
  }
  // Starts loading e's record.
  void prefetch(EdgeRef e) const { triangulation::prefetch(&records_[e >> 2]); }

 private:
  static constexpr std::uint32_t kCornerBits = 0x7FC00000u;  // a quiet NaN

  struct alignas(32) Record {
    EdgeRef next[4];
    StoredVertex end[2];  // origins of the primal directions 0 and 2
  };

  EdgeRef& next(EdgeRef e) { return records_[e >> 2].next[e & 3u]; }
  void set_lnext(EdgeRef x, EdgeRef y) { next(inv_rot(x)) = inv_rot(y); }
  void set_end_points(EdgeRef e, StoredVertex from, StoredVertex to) {
    Record& record = records_[e >> 2];
    const unsigned side = (e >> 1) & 1u;
    record.end[side] = from;
    record.end[side ^ 1u] = to;
  }

  std::array<Point, 3> corners_;
  std::vector<Record, LargeBlockAllocator<Record>> records_;
};

}  // namespace qnutil::triangulation
