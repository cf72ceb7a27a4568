// Where to start a point-location walk: a pyramid of square grids over the
// points' bounding box, each cell remembering an edge made when the last
// vertex in it was inserted. The finest level has about one cell per two
// points; while it is still sparse, coarser levels answer, so the edge
// returned is close to the query at every stage of an insertion in arbitrary
// order. Later swaps may turn a remembered edge, but it stays in the same
// neighbourhood; only deleted edges are passed over.
#pragma once

#include <cstddef>
#include <vector>

#include "numeric/triangulation/large_block_allocator.h"
#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"

namespace qnutil::triangulation {

class VertexIndex {
 public:
  static constexpr EdgeRef kNone = 0xFFFFFFFFu;

  // Covers [min, max]; points outside are clamped to the border cells.
  VertexIndex(const Point& min, const Point& max, std::size_t expected_points);

  void add(EdgeRef edge, const Point& p);
  // The most recent live edge of the finest cell containing p that has one,
  // or kNone.
  EdgeRef near(const Point& p, const QuadEdgeMesh& mesh) const;
  // For a query a few insertions ahead: starts loading p's finest cell; and
  // near() without its look at the mesh, which would wait for a record.
  void prefetch_cell(const Point& p) const;
  EdgeRef peek(const Point& p) const;

 private:
  struct Cell {
    std::size_t column;
    std::size_t row;
  };
  Cell finest_cell(const Point& p) const;
  // Index in cells_ of the cell of `level` that holds the finest cell given.
  std::size_t slot(int level, const Cell& finest) const;
  // The entry of each level's cell containing p, finest first, until f
  // accepts one; kNone when none is accepted.
  template <class Accept>
  EdgeRef finest_accepted(const Point& p, Accept accept) const;

  Point min_;
  double scale_x_ = 0.0;  // finest cells per unit
  double scale_y_ = 0.0;
  int finest_level_ = 0;
  std::vector<std::size_t> level_offset_;  // start of each level in cells_
  std::vector<EdgeRef, LargeBlockAllocator<EdgeRef>> cells_;
};

}  // namespace qnutil::triangulation
