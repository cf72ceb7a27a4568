// The mesh of a region triangulation: triangles with their neighbours, as
// compact index arrays (a triangle is 24 bytes, each side a flag byte), so
// that a mesh of a million vertices stays near 100 bytes per vertex.
// Vertices are the caller's points, named by their index; three more
// points after them are the corners of a triangle that encloses all the
// others, so that every point falls inside the mesh while it is built;
// points added by refinement follow those. Sides are named triangle * 4 +
// the index of the corner they face; the fourth flag byte of a triangle
// says whether it lies inside the region.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "numeric/triangulation/predicates.h"

namespace qnutil::triangulation::region {

using VertexId = std::uint32_t;
using TriangleId = std::uint32_t;
using Side = std::uint32_t;
constexpr Side kNoSide = UINT32_MAX;
constexpr TriangleId kNoTriangle = UINT32_MAX;

// Side flags: a ring edge, and whether rings pass along it an odd number
// of times (which is what separates inside from outside).
constexpr std::uint8_t kConstrained = 1;
constexpr std::uint8_t kOddCrossing = 2;

struct MeshTriangle {
  VertexId corner[3];  // counter-clockwise
  Side across[3];      // the neighbour's side facing corner[i]'s side, or kNoSide
};

inline TriangleId triangle_of(Side s) { return s >> 2; }
inline unsigned index_of(Side s) { return s & 3u; }
inline Side side_of(TriangleId t, unsigned index) { return t * 4 + index; }
inline unsigned next_index(unsigned i) { return i == 2 ? 0 : i + 1; }
inline unsigned previous_index(unsigned i) { return i == 0 ? 2 : i - 1; }

class RegionMesh {
 public:
  // `points` are the vertices; the enclosing corners are appended to them.
  explicit RegionMesh(std::vector<Point> points);

  VertexId input_count() const { return input_count_; }
  bool is_enclosing(VertexId v) const { return v >= input_count_ && v < input_count_ + 3; }
  // Points added after the enclosing corners, first to last.
  const Point* added_points() const { return points_.data() + input_count_ + 3; }
  std::size_t added_count() const { return points_.size() - input_count_ - 3; }
  const Point& point(VertexId v) const { return points_[v]; }
  const std::vector<MeshTriangle>& triangles() const { return triangles_; }
  std::uint8_t flags(Side s) const { return flags_[s]; }
  VertexId corner(Side s) const { return triangles_[triangle_of(s)].corner[index_of(s)]; }
  // The side's end points in the counter-clockwise direction of its triangle.
  VertexId origin(Side s) const {
    return triangles_[triangle_of(s)].corner[next_index(index_of(s))];
  }
  VertexId destination(Side s) const {
    return triangles_[triangle_of(s)].corner[previous_index(index_of(s))];
  }
  Side across(Side s) const { return triangles_[triangle_of(s)].across[index_of(s)]; }
  // A triangle that has v as a corner (v inserted).
  TriangleId triangle_at(VertexId v) const { return triangle_at_[v]; }

  bool inside(TriangleId t) const { return flags_[side_of(t, 3)] != 0; }
  void set_inside(TriangleId t, bool inside) { flags_[side_of(t, 3)] = inside; }

  // Inserts v, keeping the mesh Delaunay; when a vertex already stands at
  // v's point, nothing is inserted and that vertex is returned.
  VertexId insert(VertexId v);
  // The same, with v known to lie in or on triangle t; constrained edges
  // are split where v lies on them and never flipped.
  VertexId insert_into(VertexId v, TriangleId t);
  // Splits the side's edge at v (which the caller has checked leaves all
  // four triangles counter-clockwise), keeping the halves' flags.
  void split_side(VertexId v, Side s);
  // A new point, not yet inserted; drop_last_point takes it back.
  VertexId add_point(const Point& p);
  void drop_last_point();

  // Calls visit(t, k) for the triangles t around vertex v counter-clockwise
  // (v being t's corner k) until it returns true, or the ring closes (or,
  // around an enclosing corner, ends).
  template <class Visit>
  void for_each_around(VertexId v, Visit&& visit) const {
    const TriangleId first = triangle_at_[v];
    TriangleId t = first;
    do {
      const MeshTriangle& triangle = triangles_[t];
      unsigned k = 0;
      while (triangle.corner[k] != v) ++k;
      if (visit(t, k)) return;
      const Side next = triangle.across[next_index(k)];
      if (next == kNoSide) return;
      t = triangle_of(next);
    } while (t != first);
  }

  // Where the visibility walk from triangle `start` towards p ends: in the
  // triangle that holds p (`blocked` kNoSide), or, when ring edges stop
  // it, at the first ring-edge side in its way; `triangle` is kNoTriangle
  // when it took more than `most_steps` steps.
  struct WalkEnd {
    TriangleId triangle;
    Side blocked;
  };
  WalkEnd walk(const Point& p, TriangleId start, bool ring_edges_stop,
               std::size_t most_steps) const;

  // The side running from `from` to `to`, or kNoSide when there is no such edge.
  Side find_side(VertexId from, VertexId to) const;
  // Replaces the side's edge by the other diagonal of its two triangles,
  // which must form a strictly convex quadrilateral. Afterwards both
  // triangles have s's corner as corner 0, facing their outer sides.
  void flip(Side s);
  // Sets `set` and toggles `toggle` on both halves of the side's edge.
  void mark(Side s, std::uint8_t set, std::uint8_t toggle);
  // Flips the edges in `edges` (and those the flips uncover) until each
  // unconstrained one is locally Delaunay; empties `edges`.
  void restore_delaunay(std::vector<std::pair<VertexId, VertexId>>& edges);

 private:
  void split_triangle(VertexId v, TriangleId t);
  void link(Side a, Side b);
  void set_outer(Side s, Side outer, std::uint8_t flags);
  // Replaces the triangles `slots` (as many as `ring` has vertices) by a
  // fan around v over the ring's outer sides, each slot inside or not as
  // `slot_inside` says, and makes the mesh around v Delaunay again.
  void fan(VertexId v, const VertexId* ring, const Side* outer, const std::uint8_t* outer_flags,
           const std::uint8_t* spoke_flags, const bool* slot_inside, const TriangleId* slots,
           unsigned count);
  TriangleId new_triangle();
  // Whether the side's edge is unconstrained and not locally Delaunay:
  // the corner across it lies inside the circumcircle of s's triangle.
  bool flippable(Side s) const;
  void legalize_around(std::vector<Side>& pending);

  std::vector<Point> points_;
  std::vector<MeshTriangle> triangles_;
  std::vector<std::uint8_t> flags_;  // four per triangle: its sides', then its inside flag
  std::vector<TriangleId> triangle_at_;
  std::vector<Side> pending_;
  VertexId input_count_;
  VertexId last_inserted_;
};

}  // namespace qnutil::triangulation::region
