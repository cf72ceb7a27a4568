// TriangulateRegionRefined: inside the cap on added points no triangle has
// an angle below the bound, and the refined triangles still tile exactly
// the region (area, orientation, centroids by the even-odd rule).
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "region_checks.h"

namespace region_test {
namespace {

// A square floor with a rectangular and a round opening and a light well
// cut into its outline.
Plan square_with_openings() {
  Ring round;
  for (int k = 0; k < 24; ++k)
    round.push_back({70 + 12 * std::cos(k * 3.14159265358979323846 / 12),
                     30 + 12 * std::sin(k * 3.14159265358979323846 / 12)});
  return rings(
      {rectangle(0, 0, 100, 60), rectangle(10, 10, 30, 25), round, rectangle(40, 0, 50, 5)});
}

TEST(RegionRefinement, MeetsTheAngleBound) {
  const Plan plan = square_with_openings();
  for (const double bound : {20.0, 28.0, 33.0}) {
    SCOPED_TRACE("bound " + std::to_string(bound));
    const Result result = triangulate(plan, bound, 100000);
    ASSERT_EQ(result.code, QNUTIL_REGION_OK);
    EXPECT_LT(result.added, 100000u);
    EXPECT_GE(expect_tiles(plan, result, outline_less_openings(plan)), bound);
  }
}

}  // namespace
}  // namespace region_test
