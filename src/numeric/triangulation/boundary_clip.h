// Clipping of a face that touches the enclosing triangle against the
// boundary polygon: the face's segment from its vertex inside the boundary's
// box to its vertex outside it is cut with every boundary edge, and each cut
// yields one triangle with the outside vertex moved to the cut point.
#pragma once

#include <cstddef>

#include "numeric/triangulation/box.h"
#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/triangle_array.h"

namespace qnutil::triangulation {

class BoundaryClip {
 public:
  BoundaryClip(const Box& box, const Point* boundary, std::size_t boundary_size)
      : box_(box), boundary_(boundary), boundary_size_(boundary_size) {}

  // Appends the clipped triangles of the face with corners `corner` (its
  // first three vertices in walk order) to `out`.
  void clip(const Point (&corner)[3], TriangleArray& out) const;

 private:
  bool strictly_inside_box(const Point& p) const;
  bool recognised_as_outside(const Point& p) const;

  Box box_;
  const Point* boundary_;
  std::size_t boundary_size_;
};

// Appends triangle a, b, c to `out` as floats, reversed to c, b, a unless
// the stored corners turn counter-clockwise.
void append_counter_clockwise(const Point& a, const Point& b, const Point& c, TriangleArray& out);

// Nearest float, saturating to infinity beyond the float range.
float to_float(double value);

}  // namespace qnutil::triangulation
