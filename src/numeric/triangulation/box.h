// Axis-aligned boxes around points.
#pragma once

#include <algorithm>
#include <cstddef>

#include "numeric/triangulation/predicates.h"

namespace qnutil::triangulation {

struct Box {
  double min_x, min_y, max_x, max_y;
  double width() const { return max_x - min_x; }
  double height() const { return max_y - min_y; }
};

// The smallest box holding the points; all zero when there are none.
inline Box bounding_box(const Point* points, std::size_t count) {
  if (count == 0) return {0, 0, 0, 0};
  Box box{points[0].x, points[0].y, points[0].x, points[0].y};
  for (std::size_t i = 1; i < count; ++i) {
    box.min_x = std::min(box.min_x, points[i].x), box.max_x = std::max(box.max_x, points[i].x);
    box.min_y = std::min(box.min_y, points[i].y), box.max_y = std::max(box.max_y, points[i].y);
  }
  return box;
}

}  // namespace qnutil::triangulation
