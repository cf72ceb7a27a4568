// The export's contract: counts, empty results, ownership, duplicates and
// the points it leaves out.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "triangulation_checks.h"

namespace triangulate_test {
namespace {

constexpr float kInf = std::numeric_limits<float>::infinity();
const std::vector<Vertex> kSquareWithCentre = {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {5, 4}};

TEST(TriangulierenContract, NullPointersAndNegativeCount) {
  void* array = nullptr;
  unsigned int count = 7;
  EXPECT_EQ(Triangulieren(-5, 0, &kSquareWithCentre[0].x, &array, &count), 1);
  EXPECT_EQ(count, 0u);
  EXPECT_NE(array, nullptr);
  EXPECT_EQ(FreeTriangs(&array), 1);
  EXPECT_EQ(Triangulieren(5, 4, &kSquareWithCentre[0].x, nullptr, &count), 0);
  EXPECT_EQ(Triangulieren(5, 4, &kSquareWithCentre[0].x, &array, nullptr), 0);
  EXPECT_EQ(array, nullptr);
  EXPECT_EQ(Triangulieren(5, 0, nullptr, &array, &count), 1);  // null points: an empty array
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(FreeTriangs(&array), 1);
  EXPECT_EQ(FreeTriangs(&array), 1);  // already cleared
  EXPECT_EQ(array, nullptr);
  EXPECT_EQ(FreeTriangs(nullptr), 1);
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

// Faces between the points are emitted without looking at the boundary:
// the notch of an L-shaped outline is filled too.
TEST(ConcaveOutline, InnerFacesInTheNotchAreEmitted) {
  const std::vector<Vertex> outline = {{0, 0}, {10, 0}, {10, 4}, {4, 4}, {4, 10}, {0, 10}};
  const Result result = triangulate(outline, static_cast<unsigned int>(outline.size()));
  ASSERT_EQ(result.status, 1);
  bool in_notch = false;
  for (const Triangle& t : result.triangles) {
    const Vertex centroid{(t.corner[0].x + t.corner[1].x + t.corner[2].x) / 3,
                          (t.corner[0].y + t.corner[1].y + t.corner[2].y) / 3};
    in_notch =
        in_notch || (centroid.x > 4 && centroid.y > 4 && centroid.x < 10 && centroid.y < 10 &&
                     doubled_area(t.corner[0], t.corner[1], t.corner[2]) > 0);
  }
  EXPECT_TRUE(in_notch);
}

// The square with its centre and `copies` of each of `extra`, one block each.
std::vector<Vertex> square_with(std::initializer_list<Vertex> extra, int copies = 1) {
  std::vector<Vertex> points = kSquareWithCentre;
  for (const Vertex& v : extra) points.insert(points.end(), static_cast<std::size_t>(copies), v);
  return points;
}

struct CountCase {
  const char* name;
  std::vector<Vertex> points;
  unsigned int nb;
  std::size_t triangles;  // square with centre: 4; one more inner point: 6
};

class TriangleCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(TriangleCount, Matches) {
  const Result result = triangulate(GetParam().points, GetParam().nb);
  ASSERT_EQ(result.status, 1);
  EXPECT_TRUE(result.array_given);
  EXPECT_EQ(result.triangles.size(), GetParam().triangles);
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, TriangleCount,
    ::testing::Values(
        CountCase{"NoPoints", {}, 0, 0}, CountCase{"OnePoint", {{1, 1}}, 0, 0},
        CountCase{"TwoPoints", {{1, 1}, {5, 2}}, 2, 0},
        CountCase{"BoundaryLongerThanPoints", kSquareWithCentre, 6, 0},
        CountCase{"BoundaryFarLongerThanPoints", {{0, 0}, {10, 0}, {10, 10}}, 0xFFFFFFFFu, 0},
        // A near duplicate is inserted only when both offsets exceed the tolerance.
        CountCase{"Exact", square_with({{5, 4}}), 0, 4},
        CountCase{"WithinBoth", square_with({{5 + 8e-6f, 4 - 8e-6f}}), 0, 4},
        CountCase{"BeyondInX", square_with({{5 + 3e-5f, 4}}), 0, 6},
        CountCase{"BeyondInY", square_with({{5, 4 - 3e-5f}}), 0, 6},
        CountCase{"WithinXBeyondY", square_with({{5 + 5e-6f, 4 + 3e-5f}}), 0, 6},
        CountCase{"ManyCopiesInsertedOnce", square_with({{5, 4}, {0, 10}}, 50), 0, 4},
        // Points that cannot be inserted are left out (the last lies far
        // outside the enclosing triangle).
        CountCase{"NotInsertable",
                  square_with({{std::nanf(""), 3}, {kInf, 3}, {3, -kInf}, {1e30f, 1e30f}}), 0, 4},
        // A boundary without extent in x or y (or an infinite one) leaves no
        // enclosing triangle, hence no triangles, but still an array.
        CountCase{"SinglePointBoundary", {{1, 1}, {2, 2}, {3, 1}}, 1, 0},
        CountCase{"HorizontalBoundary", {{0, 1}, {5, 1}, {2, 3}, {2, 0}}, 2, 0},
        CountCase{"InfiniteBoundary", {{0, 0}, {kInf, 0}, {0, 5}, {1, 1}}, 3, 0}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace triangulate_test
