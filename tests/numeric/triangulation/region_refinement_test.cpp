// TriangulateRegionRefined: inside the cap on added points no triangle has
// an angle below the bound, and the refined triangles still tile exactly
// the region (area, orientation, centroids by the even-odd rule).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "region_checks.h"

namespace region_test {
namespace {

constexpr double kPi = 3.14159265358979323846;

struct Refined {
  int code = 1;
  std::vector<unsigned int> corners;
  std::vector<double> xy;  // the plan's points, then the added ones
  std::size_t added = 0;
};

Refined refine(const Plan& plan, double min_angle, unsigned int cap) {
  Refined result;
  unsigned int* triangles = nullptr;
  double* added = nullptr;
  unsigned int count = 0, added_count = 0;
  result.code =
      TriangulateRegionRefined(plan.xy.data(), static_cast<unsigned int>(plan.point_count()),
                               plan.rings.data(), static_cast<unsigned int>(plan.rings.size()),
                               min_angle, cap, &triangles, &count, &added, &added_count, nullptr);
  if (result.code != QNUTIL_REGION_OK) {
    EXPECT_TRUE(triangles == nullptr && added == nullptr && count == 0 && added_count == 0);
    return result;
  }
  EXPECT_NE(added, nullptr);  // an array also when nothing was added
  result.corners.assign(triangles, triangles + 3 * std::size_t{count});
  result.xy = plan.xy;
  result.xy.insert(result.xy.end(), added, added + 2 * std::size_t{added_count});
  result.added = added_count;
  FreeRegionTriangles(&triangles);
  FreeRegionPoints(&added);
  EXPECT_EQ(added, nullptr);
  return result;
}

double ring_area(const Plan& plan, std::size_t start, std::size_t size) {
  double twice = 0;
  for (std::size_t k = 0; k < size; ++k) {
    const std::size_t i = start + k, j = start + (k + 1) % size;
    twice += plan.xy[2 * i] * plan.xy[2 * j + 1] - plan.xy[2 * j] * plan.xy[2 * i + 1];
  }
  return std::fabs(twice) / 2;
}

// Even-odd in doubles; the centroids tested lie well away from any ring.
bool inside(const Plan& plan, double x, double y) {
  bool in = false;
  std::size_t start = 0;
  for (const unsigned int size : plan.rings) {
    for (std::size_t k = 0; k < size; ++k) {
      const double* p = &plan.xy[2 * (start + k)];
      const double* q = &plan.xy[2 * (start + (k + 1) % size)];
      if ((p[1] > y) != (q[1] > y) && x < p[0] + (y - p[1]) * (q[0] - p[0]) / (q[1] - p[1]))
        in = !in;
    }
    start += size;
  }
  return in;
}

// Checks the refined mesh; returns its smallest angle in degrees.
double expect_tiles(const Plan& plan, const Refined& result, double region_area) {
  double area = 0, smallest = 180;
  const std::size_t vertices = result.xy.size() / 2;
  for (std::size_t t = 0; 3 * t < result.corners.size(); ++t) {
    const double* c[3];
    for (int k = 0; k < 3; ++k) {
      EXPECT_LT(result.corners[3 * t + k], vertices);
      c[k] = &result.xy[2 * result.corners[3 * t + k]];
    }
    const double twice =
        (c[1][0] - c[0][0]) * (c[2][1] - c[0][1]) - (c[1][1] - c[0][1]) * (c[2][0] - c[0][0]);
    EXPECT_GT(twice, 0) << "triangle " << t;
    area += twice / 2;
    EXPECT_TRUE(inside(plan, (c[0][0] + c[1][0] + c[2][0]) / 3, (c[0][1] + c[1][1] + c[2][1]) / 3))
        << "triangle " << t;
    for (int k = 0; k < 3; ++k) {
      const double* a = c[k];
      const double* b = c[(k + 1) % 3];
      const double* d = c[(k + 2) % 3];
      const double ux = b[0] - a[0], uy = b[1] - a[1], vx = d[0] - a[0], vy = d[1] - a[1];
      smallest = std::min(smallest,
                          std::atan2(std::fabs(ux * vy - uy * vx), ux * vx + uy * vy) * 180 / kPi);
    }
  }
  EXPECT_NEAR(area, region_area, 1e-9 * region_area);
  return smallest;
}

Plan square_with_openings() {
  Plan plan;
  plan.ring({{0, 0}, {100, 0}, {100, 60}, {0, 60}});
  plan.ring({{10, 10}, {30, 10}, {30, 25}, {10, 25}});
  std::vector<std::pair<double, double>> round;
  for (int k = 0; k < 24; ++k)
    round.push_back({70 + 12 * std::cos(kPi * k / 12), 30 + 12 * std::sin(kPi * k / 12)});
  plan.ring(round);
  plan.ring({{40, 0}, {50, 0}, {50, 5}, {40, 5}});  // cut into the outline
  return plan;
}

double square_with_openings_area() { return 6000 - 300 - 24 * 0.5 * 144 * std::sin(kPi / 12) - 50; }

TEST(RegionRefinement, MeetsTheAngleBound) {
  const Plan plan = square_with_openings();
  for (const double bound : {20.0, 28.0, 33.0}) {
    SCOPED_TRACE("bound " + std::to_string(bound));
    const Refined result = refine(plan, bound, 100000);
    ASSERT_EQ(result.code, QNUTIL_REGION_OK);
    EXPECT_LT(result.added, 100000u);
    EXPECT_GE(expect_tiles(plan, result, square_with_openings_area()), bound);
  }
}

// A larger plan: a wavy outline around 49 openings, with interior points.
TEST(RegionRefinement, MeetsTheAngleBoundOnARandomPlan) {
  const Plan plan = random_plan(4, 600, 20, 7, 300);
  double area = static_cast<double>(ring_double_area(plan, 0));
  for (std::size_t r = 1; r < plan.rings.size(); ++r) area -= ring_double_area(plan, r);
  const Refined result = refine(plan, 30, 100000);
  ASSERT_EQ(result.code, QNUTIL_REGION_OK);
  EXPECT_LT(result.added, 100000u);
  EXPECT_GE(expect_tiles(plan, result, area / 2), 30);
}

TEST(RegionRefinement, CapAndNoBound) {
  const Plan plan = square_with_openings();
  const Refined capped = refine(plan, 30, 7);
  ASSERT_EQ(capped.code, QNUTIL_REGION_OK);
  EXPECT_EQ(capped.added, 7u);
  expect_tiles(plan, capped, square_with_openings_area());

  // Without a bound (or without room) the result is TriangulateRegion's.
  const Result plain = triangulate(plan);
  for (const auto& [bound, cap] : {std::pair{0.0, 100u}, std::pair{30.0, 0u}}) {
    const Refined unrefined = refine(plan, bound, cap);
    ASSERT_EQ(unrefined.code, QNUTIL_REGION_OK);
    EXPECT_EQ(unrefined.added, 0u);
    EXPECT_EQ(unrefined.corners, plain.corners);
  }
}

// A wedge of 3 degrees can never meet a 30-degree bound: refinement stops
// short of the corner, well before the cap, with a valid mesh.
TEST(RegionRefinement, SmallInputAngleStopsShortOfTheCorner) {
  Plan plan;
  plan.ring({{0, 0}, {100, 0}, {100 * std::cos(3 * kPi / 180), 100 * std::sin(3 * kPi / 180)}});
  const Refined result = refine(plan, 30, 100000);
  ASSERT_EQ(result.code, QNUTIL_REGION_OK);
  EXPECT_LT(result.added, 20000u);
  expect_tiles(plan, result, ring_area(plan, 0, 3));
}

TEST(RegionRefinement, BadArguments) {
  const Plan plan = square_with_openings();
  for (const double bound : {-1.0, 35.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(refine(plan, bound, 10).code, QNUTIL_REGION_BAD_ARGUMENT) << bound;
  EXPECT_EQ(refine(plan, 20, 100000000).code, QNUTIL_REGION_BAD_ARGUMENT);  // no room for the cap
  unsigned int* triangles = nullptr;
  unsigned int count = 0, added_count = 0;
  EXPECT_EQ(
      TriangulateRegionRefined(plan.xy.data(), static_cast<unsigned int>(plan.point_count()),
                               plan.rings.data(), static_cast<unsigned int>(plan.rings.size()), 20,
                               10, &triangles, &count, nullptr, &added_count, nullptr),
      QNUTIL_REGION_BAD_ARGUMENT);
  EXPECT_EQ(triangles, nullptr);
  FreeRegionPoints(nullptr);
}

}  // namespace
}  // namespace region_test
