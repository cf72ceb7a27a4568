#include "numeric/triangulation/predicates.h"

#include <cmath>

#include "numeric/triangulation/exact_arithmetic.h"

namespace qnutil::triangulation {
namespace {

constexpr double kEpsilon = 1.1102230246251565e-16;  // 2^-53, half an ulp of 1
// Bounds on the rounding error of the plain evaluations below, relative to
// the sum of the magnitudes of their products.
constexpr double kOrientationBound = (3.0 + 16.0 * kEpsilon) * kEpsilon;
constexpr double kInCircleBound = (10.0 + 96.0 * kEpsilon) * kEpsilon;

int sign_of(double value) { return value > 0.0 ? 1 : (value < 0.0 ? -1 : 0); }

int exact_orientation(const Point& a, const Point& b, const Point& c) {
  using exact::difference;
  const auto det = difference(a.x, c.x) * difference(b.y, c.y) - difference(a.y, c.y) * difference(b.x, c.x);
  return exact::sign(det);
}

int exact_in_circle(const Point& a, const Point& b, const Point& c, const Point& d) {
  using exact::difference;
  const auto adx = difference(a.x, d.x), ady = difference(a.y, d.y);
  const auto bdx = difference(b.x, d.x), bdy = difference(b.y, d.y);
  const auto cdx = difference(c.x, d.x), cdy = difference(c.y, d.y);
  const auto a_lift = adx * adx + ady * ady;
  const auto b_lift = bdx * bdx + bdy * bdy;
  const auto c_lift = cdx * cdx + cdy * cdy;
  const auto det = a_lift * (bdx * cdy - cdx * bdy) + b_lift * (cdx * ady - adx * cdy) +
                   c_lift * (adx * bdy - bdx * ady);
  return exact::sign(det);
}

}  // namespace

int orientation(const Point& a, const Point& b, const Point& c) {
  const double left = (a.x - c.x) * (b.y - c.y);
  const double right = (a.y - c.y) * (b.x - c.x);
  const double det = left - right;
  // Products of opposite sign (or a zero one) cannot cancel: the rounded
  // difference has the exact sign.
  if ((left > 0.0 && right <= 0.0) || (left < 0.0 && right >= 0.0) || (left == 0.0 && right == 0.0))
    return sign_of(det);
  const double bound = kOrientationBound * (std::fabs(left) + std::fabs(right));
  if (det > bound || -det > bound) return sign_of(det);
  return exact_orientation(a, b, c);
}

int in_circle(const Point& a, const Point& b, const Point& c, const Point& d) {
  const double adx = a.x - d.x, ady = a.y - d.y;
  const double bdx = b.x - d.x, bdy = b.y - d.y;
  const double cdx = c.x - d.x, cdy = c.y - d.y;
  const double bdxcdy = bdx * cdy, cdxbdy = cdx * bdy;
  const double cdxady = cdx * ady, adxcdy = adx * cdy;
  const double adxbdy = adx * bdy, bdxady = bdx * ady;
  const double a_lift = adx * adx + ady * ady;
  const double b_lift = bdx * bdx + bdy * bdy;
  const double c_lift = cdx * cdx + cdy * cdy;
  const double det = a_lift * (bdxcdy - cdxbdy) + b_lift * (cdxady - adxcdy) + c_lift * (adxbdy - bdxady);
  const double permanent = (std::fabs(bdxcdy) + std::fabs(cdxbdy)) * a_lift +
                           (std::fabs(cdxady) + std::fabs(adxcdy)) * b_lift +
                           (std::fabs(adxbdy) + std::fabs(bdxady)) * c_lift;
  const double bound = kInCircleBound * permanent;
  if (det > bound || -det > bound) return sign_of(det);
  return exact_in_circle(a, b, c, d);
}

}  // namespace qnutil::triangulation
