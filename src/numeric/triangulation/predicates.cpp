// The exact fallbacks of the predicates: the same determinants evaluated in
// expansion arithmetic from error-free differences of the coordinates.
#include "numeric/triangulation/predicates.h"

#include "numeric/triangulation/exact_arithmetic.h"

namespace qnutil::triangulation::detail {

int exact_orientation(const Point& a, const Point& b, const Point& c) {
  using exact::difference;
  const auto det =
      difference(a.x, c.x) * difference(b.y, c.y) - difference(a.y, c.y) * difference(b.x, c.x);
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

}  // namespace qnutil::triangulation::detail
