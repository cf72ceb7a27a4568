// Where to start a point-location walk: a pyramid of square grids over the
// points' bounding box, each cell remembering the last vertex inserted into
// it. The finest level has about one cell per two points; while it is still
// sparse, coarser levels answer, so the vertex returned is close to the query
// at every stage of an insertion in arbitrary order.
#pragma once

#include <cstddef>
#include <vector>

#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"

namespace qnutil::triangulation {

class VertexIndex {
 public:
  static constexpr VertexId kNone = 0xFFFFFFFFu;

  // Covers [min, max]; points outside are clamped to the border cells.
  VertexIndex(const Point& min, const Point& max, std::size_t expected_points);

  void add(VertexId vertex, const Point& p);
  // The most recent vertex in the finest non-empty cell containing p, or kNone.
  VertexId near(const Point& p) const;

 private:
  struct Cell {
    std::size_t column;
    std::size_t row;
  };
  Cell finest_cell(const Point& p) const;

  Point min_;
  double scale_x_ = 0.0;  // finest cells per unit
  double scale_y_ = 0.0;
  int finest_level_ = 0;
  std::vector<std::size_t> level_offset_;  // start of each level in cells_
  std::vector<VertexId> cells_;
};

}  // namespace qnutil::triangulation
