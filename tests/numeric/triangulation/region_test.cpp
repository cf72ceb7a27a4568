// TriangulateRegion on floor plans: the triangles tile exactly the region
// the rings enclose (openings empty); and clear results for what has no
// region.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "region_checks.h"

namespace region_test {
namespace {

// A rectangle with `per_side` points on each side (collinear runs).
Ring dense_rectangle(int x0, int y0, int x1, int y1, int per_side) {
  Ring ring;
  for (int i = 0; i < per_side; ++i) ring.push_back({x0 + (x1 - x0) * i / per_side, y0});
  for (int i = 0; i < per_side; ++i) ring.push_back({x1, y0 + (y1 - y0) * i / per_side});
  for (int i = 0; i < per_side; ++i) ring.push_back({x1 - (x1 - x0) * i / per_side, y1});
  for (int i = 0; i < per_side; ++i) ring.push_back({x0, y1 - (y1 - y0) * i / per_side});
  return ring;
}

// The floor with a 10 m grid of interior points (on its edges too), one
// point outside and one in the opening, neither used.
Plan with_grid_points(Plan plan) {
  for (int x = 0; x <= 90; x += 10)
    for (int y = 0; y <= 90; y += 10) plan.point(x, y);
  plan.point(200, 200);
  plan.point(45, 45);
  return plan;
}

TEST(RegionPlans, TileTheRegion) {
  const Ring spikes = {{0, 0},   {40, 0},  {40, -30}, {40, 0},  {80, 0},
                       {80, 50}, {50, 50}, {50, 20},  {50, 50}, {0, 50}};
  const struct {
    const char* name;
    Plan plan;
    std::int64_t double_area;  // twice the region's area, exact
  } cases[] = {
      {"concave L", rings({{{0, 0}, {60, 0}, {60, 20}, {20, 20}, {20, 50}, {0, 50}}}),
       2 * (60 * 20 + 20 * 30)},
      {"square with an opening", rings({rectangle(0, 0, 100, 100), rectangle(30, 30, 60, 70)}),
       2 * (10000 - 1200)},
      {"opening along part of the outline",
       rings({rectangle(0, 0, 100, 100), rectangle(20, 0, 50, 30)}), 2 * (10000 - 900)},
      {"collinear runs on outline and opening",
       rings({dense_rectangle(0, 0, 2000, 1000, 40), dense_rectangle(500, 200, 1500, 800, 25)}),
       2 * (2000000 - 600000)},
      {"zero-area spikes out and in", rings({spikes}), 2 * 4000},
      {"interior points",
       with_grid_points(rings({rectangle(0, 0, 90, 90), rectangle(30, 30, 60, 60)})),
       2 * (8100 - 900)},
      {"nested: an island inside an opening",
       rings({rectangle(0, 0, 100, 100), rectangle(20, 20, 80, 80), rectangle(40, 40, 60, 60)}),
       2 * (10000 - 3600 + 400)},
  };
  for (const auto& [name, plan, double_area] : cases) {
    SCOPED_TRACE(name);
    const Result result = triangulate(plan);
    ASSERT_EQ(result.code, QNUTIL_REGION_OK);
    expect_tiles(plan, result, double_area / 2.0);
  }
}

TEST(RegionResults, CrossingRingsAreRefusedNamingTheEdge) {
  Plan bow_tie = rings({{{0, 0}, {10, 10}, {10, 0}, {0, 10}}});
  Result result = triangulate(bow_tie);
  EXPECT_EQ(result.code, QNUTIL_REGION_CROSSING);
  EXPECT_EQ(result.crossing_point, 2u);  // (10, 0) - (0, 10) runs into 0 - 1

  Plan overlapping = rings({rectangle(0, 0, 100, 100), rectangle(50, 50, 150, 150)});
  result = triangulate(overlapping);
  EXPECT_EQ(result.code, QNUTIL_REGION_CROSSING);
  EXPECT_GE(result.crossing_point, 4u);
  EXPECT_LT(result.crossing_point, 8u);
}

TEST(RegionResults, BadArgumentsAndCoordinates) {
  const Plan square = rings({rectangle(0, 0, 10, 10)});
  unsigned int* array = reinterpret_cast<unsigned int*>(&array);
  unsigned int count = 5;
  const unsigned int too_many[] = {5};
  EXPECT_EQ(TriangulateRegion(square.xy.data(), 4, too_many, 1, &array, &count, nullptr),
            QNUTIL_REGION_BAD_ARGUMENT);
  EXPECT_EQ(array, nullptr);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(triangulate(square, 35.0).code, QNUTIL_REGION_BAD_ARGUMENT);  // beyond the bound
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(), -2e30}) {
    Plan plan = square;
    plan.xy[3] = bad;
    EXPECT_EQ(triangulate(plan).code, QNUTIL_REGION_BAD_COORDINATE) << bad;
  }
  // Nothing to enclose: an empty array, still one to release.
  Plan no_rings;
  no_rings.point(1, 1);
  EXPECT_EQ(triangulate(no_rings).triangle_count(), 0u);
}

}  // namespace
}  // namespace region_test
