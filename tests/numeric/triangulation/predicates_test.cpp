// The exact predicates on inputs whose signs are known by construction:
// lattice points on one circle (in-circle 0), the fourth point moved by a
// single unit in the last place inwards (+1) or outwards (-1), at scales
// from tiny to huge and shifted off the origin, so that both the path for
// exact coordinate differences and the general one decide.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

#include "numeric/triangulation/predicates.h"

namespace {

using qnutil::triangulation::in_circle;
using qnutil::triangulation::orientation;
using qnutil::triangulation::Point;

TEST(Predicates, InCircleSignsOnAndNextToACircle) {
  struct Circle {
    Point a, b, c, d;  // on one circle, a, b, c counter-clockwise
    Point centre;
  };
  // Around the origin (the coordinate differences are not all exact
  // doubles once d moves), and around (100, 100), where every coordinate
  // stays within one binade and so every difference is exact.
  const Circle circles[] = {{{16, 63}, {-33, 56}, {-63, -16}, {60, -25}, {0, 0}},
                            {{104, 103}, {97, 104}, {95, 100}, {103, 96}, {100, 100}}};
  const std::pair<double, double> placements[] = {// scale, shift
                                                  {std::ldexp(1.0, -60), 0.0},
                                                  {1.0, 0.0},
                                                  {std::ldexp(1.0, 40), 0.0},
                                                  {1.0, 1000.0},
                                                  {1e-3, 1000.0},
                                                  {std::ldexp(1.0, 20), -3.5e6}};
  for (const Circle& circle : circles)
    for (const auto& [scale, shift] : placements) {
      SCOPED_TRACE("centre " + std::to_string(circle.centre.x) + " scale " + std::to_string(scale) +
                   " shift " + std::to_string(shift));
      auto at = [&](Point p) { return Point{p.x * scale + shift, p.y * scale + shift}; };
      const Point a = at(circle.a), b = at(circle.b), c = at(circle.c), d = at(circle.d);
      ASSERT_EQ(orientation(a, b, c), 1);
      if (shift == 0.0) {
        // Only unshifted are the points exactly on one circle.
        const double centre_x = circle.centre.x * scale;
        EXPECT_EQ(in_circle(a, b, c, d), 0);
        const Point inwards{std::nextafter(d.x, centre_x), d.y};
        const Point outwards{std::nextafter(d.x, 2 * d.x - centre_x), d.y};
        EXPECT_EQ(in_circle(a, b, c, inwards), 1);
        EXPECT_EQ(in_circle(a, b, c, outwards), -1);
        EXPECT_EQ(in_circle(b, a, c, inwards), -1);  // clockwise: the sign flips
      } else {
        // Shifted, the rounding of each coordinate decides; the exact sign
        // must still agree with the one for the mirrored order.
        EXPECT_EQ(in_circle(a, b, c, d), -in_circle(b, a, c, d));
        EXPECT_EQ(in_circle(a, b, c, d), in_circle(b, c, a, d));
      }
    }
}

TEST(Predicates, OrientationOfNearlyCollinearPoints) {
  // p, q and r = p + 2^k (q - p) exactly collinear; r moved by one ulp.
  const Point p{0.5, 0.5}, q{12.0, 12.0};
  for (const double far : {24.0, 1e15, 1e-3}) {
    const Point r{far, far};
    EXPECT_EQ(orientation(p, q, r), 0) << far;
    EXPECT_EQ(orientation(p, q, {r.x, std::nextafter(r.y, 2 * r.y + 1)}), 1) << far;
    EXPECT_EQ(orientation(p, q, {std::nextafter(r.x, 2 * r.x + 1), r.y}), -1) << far;
  }
}

}  // namespace
