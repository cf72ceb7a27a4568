// The export's contract: counts, empty results, ownership, duplicates and
// the points it leaves out.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "qnutil/qnutil.h"
#include "triangulation_checks.h"

namespace triangulate_test {
namespace {

const std::vector<Vertex> kSquareWithCentre = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {5, 4}};

struct EmptyCase {
  const char* name;
  int n;
  unsigned int nb;
};

class EmptyResult : public ::testing::TestWithParam<EmptyCase> {};

TEST_P(EmptyResult, IsAnArrayOfNoTriangles) {
  const EmptyCase& c = GetParam();
  void* array = nullptr;
  unsigned int count = 99;
  EXPECT_EQ(Triangulieren(c.n, c.nb, &kSquareWithCentre[0].x, &array, &count), 1);
  EXPECT_EQ(count, 0u);
  EXPECT_NE(array, nullptr);
  EXPECT_EQ(FreeTriangs(&array), 1);
  EXPECT_EQ(array, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Counts, EmptyResult,
                         ::testing::Values(EmptyCase{"NoPoints", 0, 0}, EmptyCase{"OnePoint", 1, 0},
                                           EmptyCase{"TwoPoints", 2, 2}, EmptyCase{"NegativeCount", -5, 0},
                                           EmptyCase{"BoundaryLongerThanPoints", 5, 6},
                                           EmptyCase{"BoundaryFarLongerThanPoints", 3, 0xFFFFFFFFu}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TriangulierenContract, NullOutputPointersFail) {
  void* array = nullptr;
  unsigned int count = 0;
  EXPECT_EQ(Triangulieren(5, 4, &kSquareWithCentre[0].x, nullptr, &count), 0);
  EXPECT_EQ(Triangulieren(5, 4, &kSquareWithCentre[0].x, &array, nullptr), 0);
  EXPECT_EQ(array, nullptr);
}

TEST(TriangulierenContract, NullPointsGiveAnEmptyArray) {
  void* array = nullptr;
  unsigned int count = 7;
  EXPECT_EQ(Triangulieren(5, 0, nullptr, &array, &count), 1);
  EXPECT_EQ(count, 0u);
  FreeTriangs(&array);
}

TEST(FreeTriangsContract, AcceptsNullAndClears) {
  EXPECT_EQ(FreeTriangs(nullptr), 1);
  void* array = nullptr;
  EXPECT_EQ(FreeTriangs(&array), 1);
  EXPECT_EQ(array, nullptr);
}

// Without a boundary the box keeps its start values: nothing lies strictly
// inside it, so only faces away from the enclosing triangle come out, and no
// corner of that triangle appears in the result.
TEST(TriangulierenContract, NoBoundaryEmitsOnlyInnerFaces) {
  const Result result = triangulate(kSquareWithCentre, 0);
  ASSERT_EQ(result.status, 1);
  ASSERT_EQ(result.triangles.size(), 4u);
  for (const Triangle& t : result.triangles) {
    bool has_centre = false;
    for (const Vertex& v : t.corner) {
      EXPECT_LE(std::fabs(v.x), 10.0f);
      EXPECT_LE(std::fabs(v.y), 10.0f);
      has_centre = has_centre || (v.x == 5 && v.y == 4);
    }
    EXPECT_TRUE(has_centre);
    EXPECT_GT(doubled_area(t.corner[0], t.corner[1], t.corner[2]), 0);
  }
}

struct DuplicateCase {
  const char* name;
  float dx, dy;
  std::size_t triangles;  // square with centre: 4; one more inner point: 6
};

class NearDuplicate : public ::testing::TestWithParam<DuplicateCase> {};

TEST_P(NearDuplicate, IsInsertedOnlyWhenBothOffsetsExceedTheTolerance) {
  const DuplicateCase& c = GetParam();
  std::vector<Vertex> points = kSquareWithCentre;
  points.push_back({5 + c.dx, 4 + c.dy});
  const Result result = triangulate(points, 0);
  ASSERT_EQ(result.status, 1);
  EXPECT_EQ(result.triangles.size(), c.triangles);
}

INSTANTIATE_TEST_SUITE_P(
    Offsets, NearDuplicate,
    ::testing::Values(DuplicateCase{"Exact", 0, 0, 4}, DuplicateCase{"WithinBoth", 8e-6f, -8e-6f, 4},
                      DuplicateCase{"BeyondInX", 3e-5f, 0, 6}, DuplicateCase{"BeyondInY", 0, -3e-5f, 6},
                      DuplicateCase{"WithinXBeyondY", 5e-6f, 3e-5f, 6}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(TriangulierenContract, ManyCopiesOfOnePointAreInsertedOnce) {
  std::vector<Vertex> points = kSquareWithCentre;
  for (int i = 0; i < 50; ++i) points.push_back({5, 4});
  for (int i = 0; i < 50; ++i) points.push_back({0, 10});
  EXPECT_EQ(triangulate(points, 0).triangles.size(), 4u);
}

TEST(TriangulierenContract, PointsThatCannotBeInsertedAreLeftOut) {
  constexpr float kInf = std::numeric_limits<float>::infinity();
  std::vector<Vertex> points = kSquareWithCentre;
  points.push_back({std::nanf(""), 3});
  points.push_back({kInf, 3});
  points.push_back({3, -kInf});
  points.push_back({1e30f, 1e30f});  // far outside the enclosing triangle
  const Result result = triangulate(points, 0);
  ASSERT_EQ(result.status, 1);
  EXPECT_EQ(result.triangles.size(), 4u);
}

struct DegenerateBoundaryCase {
  const char* name;
  std::vector<Vertex> points;
  unsigned int nb;
};

class DegenerateBoundary : public ::testing::TestWithParam<DegenerateBoundaryCase> {};

// A boundary without extent in x or y (or an infinite one) leaves no
// enclosing triangle, hence no triangles, but still an array.
TEST_P(DegenerateBoundary, GivesNoTriangles) {
  const Result result = triangulate(GetParam().points, GetParam().nb);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.triangles.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, DegenerateBoundary,
    ::testing::Values(
        DegenerateBoundaryCase{"SinglePoint", {{1, 1}, {2, 2}, {3, 1}}, 1},
        DegenerateBoundaryCase{"Horizontal", {{0, 1}, {5, 1}, {2, 3}, {2, 0}}, 2},
        DegenerateBoundaryCase{"Infinite", {{0, 0}, {std::numeric_limits<float>::infinity(), 0}, {0, 5}, {1, 1}}, 3}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace triangulate_test
