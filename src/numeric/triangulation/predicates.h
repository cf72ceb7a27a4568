// Exact orientation and in-circle tests on double coordinates: a fast
// floating-point evaluation decides whenever its error bound allows, and an
// exact expansion evaluation decides the rest, so no sign is ever a guess.
// Coordinates must be finite; magnitudes up to about 1e60 keep every
// intermediate product in range.
#pragma once

namespace qnutil::triangulation {

struct Point {
  double x;
  double y;
};

// 1 when a, b, c turn counter-clockwise, -1 clockwise, 0 collinear.
int orientation(const Point& a, const Point& b, const Point& c);

// For a, b, c counter-clockwise: 1 when d lies strictly inside their
// circumcircle, -1 strictly outside, 0 on it (the sign flips for clockwise a, b, c).
int in_circle(const Point& a, const Point& b, const Point& c, const Point& d);

}  // namespace qnutil::triangulation
