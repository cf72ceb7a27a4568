// Quad-edge subdivision (Guibas and Stolfi) with index links: every
// undirected edge is one record of four directed edges (the two primal
// directions and the two dual ones), and a directed edge is named by
// record * 4 + rotation. Each record also carries the coordinates of its
// two end points, so that geometric tests along a walk touch one cache line
// per edge. Records are kept in creation order; a deleted record stays in
// place, marked dead, so that the order of the remaining records is the
// order in which they were made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/prefetch.h"

namespace qnutil::triangulation {

using EdgeRef = std::uint32_t;
using VertexId = std::uint32_t;

class QuadEdgeMesh {
 public:
  void reserve(std::size_t records) { records_.reserve(records); }

  // A new isolated edge from vertex `from` at p to vertex `to` at q.
  EdgeRef make_edge(VertexId from, const Point& p, VertexId to, const Point& q);
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
  // Detaches e from the subdivision and marks its record dead.
  void delete_edge(EdgeRef e);
  // Turns e counter-clockwise inside the quadrilateral formed by its two faces.
  void swap(EdgeRef e) {
    const EdgeRef a = oprev(e);
    const EdgeRef b = oprev(sym(e));
    splice(e, a);
    splice(sym(e), b);
    splice(e, lnext(a));
    splice(sym(e), lnext(b));
    set_end_points(e, destination(a), destination_point(a), destination(b), destination_point(b));
  }

  static EdgeRef rot(EdgeRef e) { return (e & ~3u) | ((e + 1) & 3u); }
  static EdgeRef inv_rot(EdgeRef e) { return (e & ~3u) | ((e + 3) & 3u); }
  static EdgeRef sym(EdgeRef e) { return e ^ 2u; }
  EdgeRef onext(EdgeRef e) const { return records_[e >> 2].next[e & 3u]; }
  EdgeRef oprev(EdgeRef e) const { return rot(onext(rot(e))); }
  EdgeRef lnext(EdgeRef e) const { return rot(onext(inv_rot(e))); }
  EdgeRef lprev(EdgeRef e) const { return sym(onext(e)); }
  VertexId origin(EdgeRef e) const { return records_[e >> 2].origin[(e >> 1) & 1u]; }
  VertexId destination(EdgeRef e) const { return origin(sym(e)); }
  const Point& origin_point(EdgeRef e) const { return records_[e >> 2].point[(e >> 1) & 1u]; }
  const Point& destination_point(EdgeRef e) const { return origin_point(sym(e)); }

  std::size_t record_count() const { return records_.size(); }
  bool alive(std::size_t record) const { return records_[record].alive != 0; }
  static EdgeRef primal(std::size_t record, int direction) {
    return static_cast<EdgeRef>(record * 4 + static_cast<std::size_t>(direction) * 2);
  }
  // Starts loading e's record.
  void prefetch(EdgeRef e) const { triangulation::prefetch(&records_[e >> 2]); }

 private:
  struct alignas(64) Record {
    EdgeRef next[4];
    VertexId origin[2];  // of the primal directions 0 and 2
    std::uint8_t alive;
    Point point[2];
  };

  EdgeRef& next(EdgeRef e) { return records_[e >> 2].next[e & 3u]; }
  void set_end_points(EdgeRef e, VertexId from, const Point& p, VertexId to, const Point& q) {
    Record& record = records_[e >> 2];
    const unsigned side = (e >> 1) & 1u;
    record.origin[side] = from;
    record.point[side] = p;
    record.origin[side ^ 1u] = to;
    record.point[side ^ 1u] = q;
  }

  std::vector<Record> records_;
};

}  // namespace qnutil::triangulation
