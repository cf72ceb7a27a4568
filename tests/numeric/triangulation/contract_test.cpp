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

// The square with its centre and `copies` of each of `extra`, one block each.
std::vector<Vertex> square_with(std::initializer_list<Vertex> extra, int copies = 1) {
  std::vector<Vertex> points = kSquareWithCentre;
  for (const Vertex& v : extra) points.insert(points.end(), static_cast<std::size_t>(copies), v);
  return points;
}

TEST(TriangleCount, MatchesTheInput) {
  const struct {
    const char* name;
    std::vector<Vertex> points;
    unsigned int nb;
    std::size_t triangles;  // square with centre: 4; one more inner point: 6
  } rows[] = {{"NoPoints", {}, 0, 0},
              {"OnePoint", {{1, 1}}, 0, 0},
              {"TwoPoints", {{1, 1}, {5, 2}}, 2, 0},
              {"BoundaryLongerThanPoints", kSquareWithCentre, 6, 0},
              {"BoundaryFarLongerThanPoints", {{0, 0}, {10, 0}, {10, 10}}, 0xFFFFFFFFu, 0},
              // A near duplicate is inserted only when both offsets exceed the tolerance.
              {"Exact", square_with({{5, 4}}), 0, 4},
              {"WithinBoth", square_with({{5 + 8e-6f, 4 - 8e-6f}}), 0, 4},
              {"BeyondInX", square_with({{5 + 3e-5f, 4}}), 0, 6},
              {"BeyondInY", square_with({{5, 4 - 3e-5f}}), 0, 6},
              {"WithinXBeyondY", square_with({{5 + 5e-6f, 4 + 3e-5f}}), 0, 6},
              {"ManyCopiesInsertedOnce", square_with({{5, 4}, {0, 10}}, 50), 0, 4},
              // Points that cannot be inserted are left out (the last lies far
              // outside the enclosing triangle).
              {"NotInsertable",
               square_with({{std::nanf(""), 3}, {kInf, 3}, {3, -kInf}, {1e30f, 1e30f}}), 0, 4},
              // A boundary without extent in x or y (or an infinite one) leaves no
              // enclosing triangle, hence no triangles, but still an array.
              {"SinglePointBoundary", {{1, 1}, {2, 2}, {3, 1}}, 1, 0},
              {"HorizontalBoundary", {{0, 1}, {5, 1}, {2, 3}, {2, 0}}, 2, 0},
              {"InfiniteBoundary", {{0, 0}, {kInf, 0}, {0, 5}, {1, 1}}, 3, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = triangulate(row.points, row.nb);
    ASSERT_EQ(result.status, 1);
    EXPECT_TRUE(result.array_given);
    EXPECT_EQ(result.triangles.size(), row.triangles);
  }
}

}  // namespace
}  // namespace triangulate_test
