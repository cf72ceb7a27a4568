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

namespace {

// x * y - z * w as an expansion of up to four terms.
std::size_t cross(double x, double y, double z, double w, double (&out)[4]) {
  double product[2], negated[2];
  exact::two_product(x, y, product[1], product[0]);
  exact::two_product(z, w, negated[1], negated[0]);
  negated[0] = -negated[0];
  negated[1] = -negated[1];
  return exact::sum(product, 2, negated, 2, out);
}

// e * (dx^2 + dy^2) for a cross product e.
// Each step's result is compressed: the expansions stay a few terms long,
// which makes the next steps cheap.
std::size_t lifted(const double (&e)[4], std::size_t size, double dx, double dy,
                   double (&out)[32]) {
  double once[8], x_part[16], y_part[16];
  std::size_t once_size = exact::compress(once, exact::scale(e, size, dx, once));
  const std::size_t x_size = exact::compress(x_part, exact::scale(once, once_size, dx, x_part));
  once_size = exact::compress(once, exact::scale(e, size, dy, once));
  const std::size_t y_size = exact::compress(y_part, exact::scale(once, once_size, dy, y_part));
  return exact::compress(out, exact::sum(x_part, x_size, y_part, y_size, out));
}

// The in-circle determinant when the coordinate differences are exact
// doubles, which they are whenever the points lie close together (the case
// that reaches the exact test most often, as on a finely sampled curve):
// far fewer terms than the general expansion.
int in_circle_of_exact_differences(double adx, double ady, double bdx, double bdy, double cdx,
                                   double cdy) {
  double bc[4], ca[4], ab[4];
  const std::size_t bc_size = cross(bdx, cdy, cdx, bdy, bc);
  const std::size_t ca_size = cross(cdx, ady, adx, cdy, ca);
  const std::size_t ab_size = cross(adx, bdy, bdx, ady, ab);
  double a_det[32], b_det[32], c_det[32], ab_det[64], det[96];
  const std::size_t a_size = lifted(bc, bc_size, adx, ady, a_det);
  const std::size_t b_size = lifted(ca, ca_size, bdx, bdy, b_det);
  const std::size_t c_size = lifted(ab, ab_size, cdx, cdy, c_det);
  const std::size_t ab_det_size = exact::sum(a_det, a_size, b_det, b_size, ab_det);
  return exact::sign(det, exact::sum(ab_det, ab_det_size, c_det, c_size, det));
}

}  // namespace

int exact_in_circle(const Point& a, const Point& b, const Point& c, const Point& d) {
  using exact::difference;
  const auto adx = difference(a.x, d.x), ady = difference(a.y, d.y);
  const auto bdx = difference(b.x, d.x), bdy = difference(b.y, d.y);
  const auto cdx = difference(c.x, d.x), cdy = difference(c.y, d.y);
  const auto single = [](const exact::Expansion<2>& e) { return e.size <= 1; };
  const auto value = [](const exact::Expansion<2>& e) { return e.size == 0 ? 0.0 : e.terms[0]; };
  if (single(adx) && single(ady) && single(bdx) && single(bdy) && single(cdx) && single(cdy))
    return in_circle_of_exact_differences(value(adx), value(ady), value(bdx), value(bdy),
                                          value(cdx), value(cdy));
  const auto a_lift = adx * adx + ady * ady;
  const auto b_lift = bdx * bdx + bdy * bdy;
  const auto c_lift = cdx * cdx + cdy * cdy;
  const auto det = a_lift * (bdx * cdy - cdx * bdy) + b_lift * (cdx * ady - adx * cdy) +
                   c_lift * (adx * bdy - bdx * ady);
  return exact::sign(det);
}

}  // namespace qnutil::triangulation::detail
