// Quad-edge subdivision (Guibas and Stolfi) with index links: every
// undirected edge is one record of four directed edges (the two primal
// directions and the two dual ones), and a directed edge is named by
// record * 4 + rotation. Records are kept in creation order; a deleted
// record stays in place, marked dead, so that the order of the remaining
// records is the order in which they were made.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qnutil::triangulation {

using EdgeRef = std::uint32_t;
using VertexId = std::uint32_t;

class QuadEdgeMesh {
 public:
  void reserve(std::size_t records);

  // A new isolated edge from `origin` to `destination`.
  EdgeRef make_edge(VertexId origin, VertexId destination);
  // Joins or separates the origin rings of a and b (and their left faces).
  void splice(EdgeRef a, EdgeRef b);
  // A new edge from a's destination to b's origin, sharing a's left face.
  EdgeRef connect(EdgeRef a, EdgeRef b);
  // Detaches e from the subdivision and marks its record dead.
  void delete_edge(EdgeRef e);
  // Turns e counter-clockwise inside the quadrilateral formed by its two faces.
  void swap(EdgeRef e);

  static EdgeRef rot(EdgeRef e) { return (e & ~3u) | ((e + 1) & 3u); }
  static EdgeRef inv_rot(EdgeRef e) { return (e & ~3u) | ((e + 3) & 3u); }
  static EdgeRef sym(EdgeRef e) { return e ^ 2u; }
  EdgeRef onext(EdgeRef e) const { return next_[e]; }
  EdgeRef oprev(EdgeRef e) const { return rot(next_[rot(e)]); }
  EdgeRef lnext(EdgeRef e) const { return rot(next_[inv_rot(e)]); }
  EdgeRef lprev(EdgeRef e) const { return sym(next_[e]); }
  EdgeRef dprev(EdgeRef e) const { return inv_rot(next_[inv_rot(e)]); }
  VertexId origin(EdgeRef e) const { return origin_[e >> 1]; }
  VertexId destination(EdgeRef e) const { return origin_[(e ^ 2u) >> 1]; }

  std::size_t record_count() const { return alive_.size(); }
  bool alive(std::size_t record) const { return alive_[record] != 0; }
  static EdgeRef primal(std::size_t record, int direction) {
    return static_cast<EdgeRef>(record * 4 + static_cast<std::size_t>(direction) * 2);
  }

 private:
  void set_end_points(EdgeRef e, VertexId origin, VertexId destination) {
    origin_[e >> 1] = origin;
    origin_[(e ^ 2u) >> 1] = destination;
  }

  std::vector<EdgeRef> next_;      // four per record
  std::vector<VertexId> origin_;   // two per record, for the primal directions: index edge / 2
  std::vector<std::uint8_t> alive_;
};

}  // namespace qnutil::triangulation
