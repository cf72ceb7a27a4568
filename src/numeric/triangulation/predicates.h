// Exact orientation and in-circle tests on double coordinates: a fast
// floating-point evaluation decides whenever its error bound allows, and an
// exact expansion evaluation decides the rest, so no sign is ever a guess.
// Coordinates must be finite; magnitudes up to about 1e60 keep every
// intermediate product in range. The fast paths are inline: the triangulation
// calls them several times per edge it looks at.
#pragma once

#include <cmath>

namespace qnutil::triangulation {

struct Point {
  double x;
  double y;
};

inline double squared_distance(const Point& a, const Point& b) {
  const double dx = a.x - b.x, dy = a.y - b.y;
  return dx * dx + dy * dy;
}

namespace detail {

constexpr double kEpsilon = 1.1102230246251565e-16;  // 2^-53, half an ulp of 1
// Bounds on the rounding error of the plain evaluations, relative to the sum
// of the magnitudes of their products.
constexpr double kOrientationBound = (3.0 + 16.0 * kEpsilon) * kEpsilon;
constexpr double kInCircleBound = (10.0 + 96.0 * kEpsilon) * kEpsilon;

inline int sign_of(double value) { return value > 0.0 ? 1 : (value < 0.0 ? -1 : 0); }

int exact_orientation(const Point& a, const Point& b, const Point& c);
int exact_in_circle(const Point& a, const Point& b, const Point& c, const Point& d);

}  // namespace detail

namespace detail {

// The determinants' products in plain floating point, shared by the exact
// tests and by the estimates below.
struct OrientationTerms {
  double left, right;
};
inline OrientationTerms orientation_terms(const Point& a, const Point& b, const Point& c) {
  return {(a.x - c.x) * (b.y - c.y), (a.y - c.y) * (b.x - c.x)};
}

struct InCircleTerms {
  double det, permanent;
};
inline InCircleTerms in_circle_terms(const Point& a, const Point& b, const Point& c,
                                     const Point& d) {
  const double adx = a.x - d.x, ady = a.y - d.y;
  const double bdx = b.x - d.x, bdy = b.y - d.y;
  const double cdx = c.x - d.x, cdy = c.y - d.y;
  const double bdxcdy = bdx * cdy, cdxbdy = cdx * bdy;
  const double cdxady = cdx * ady, adxcdy = adx * cdy;
  const double adxbdy = adx * bdy, bdxady = bdx * ady;
  const double a_lift = adx * adx + ady * ady;
  const double b_lift = bdx * bdx + bdy * bdy;
  const double c_lift = cdx * cdx + cdy * cdy;
  return {a_lift * (bdxcdy - cdxbdy) + b_lift * (cdxady - adxcdy) + c_lift * (adxbdy - bdxady),
          (std::fabs(bdxcdy) + std::fabs(cdxbdy)) * a_lift +
              (std::fabs(cdxady) + std::fabs(adxcdy)) * b_lift +
              (std::fabs(adxbdy) + std::fabs(bdxady)) * c_lift};
}

}  // namespace detail

// 1 when a, b, c turn counter-clockwise, -1 clockwise, 0 collinear.
inline int orientation(const Point& a, const Point& b, const Point& c) {
  const auto [left, right] = detail::orientation_terms(a, b, c);
  const double det = left - right;
  // Products of opposite sign (or a zero one) cannot cancel: the rounded
  // difference has the exact sign.
  if ((left > 0.0 && right <= 0.0) || (left < 0.0 && right >= 0.0) || (left == 0.0 && right == 0.0))
    return detail::sign_of(det);
  const double bound = detail::kOrientationBound * (std::fabs(left) + std::fabs(right));
  if (det > bound || -det > bound) return detail::sign_of(det);
  return detail::exact_orientation(a, b, c);
}

// For a, b, c counter-clockwise: 1 when d lies strictly inside their
// circumcircle, -1 strictly outside, 0 on it (the sign flips for clockwise a, b, c).
inline int in_circle(const Point& a, const Point& b, const Point& c, const Point& d) {
  const auto [det, permanent] = detail::in_circle_terms(a, b, c, d);
  const double bound = detail::kInCircleBound * permanent;
  if (det > bound || -det > bound) return detail::sign_of(det);
  return detail::exact_in_circle(a, b, c, d);
}

// Estimates of the two tests, whose sign may be wrong when the points are
// nearly collinear or cocircular: for guesses that the exact tests check.
inline bool probably_left_of(const Point& a, const Point& b, const Point& p) {
  const auto [left, right] = detail::orientation_terms(a, b, p);
  return left > right;
}
inline bool probably_in_circle(const Point& a, const Point& b, const Point& c, const Point& d) {
  return detail::in_circle_terms(a, b, c, d).det > 0.0;
}

}  // namespace qnutil::triangulation
