// The triangles away from the enclosing triangle form a Delaunay
// triangulation of the input, also for inputs full of degeneracies: every
// triangle turns counter-clockwise, none overlaps another, and no input point
// lies inside any circumcircle (checked against every point, for inputs
// small enough for that quadratic check).
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "triangulation_checks.h"

namespace triangulate_test {
namespace {

std::vector<Vertex> random_points(int count) {
  std::mt19937 generator(12345);
  std::uniform_real_distribution<float> coordinate(-500.0f, 500.0f);
  std::vector<Vertex> points;
  for (int i = 0; i < count; ++i) points.push_back({coordinate(generator), coordinate(generator)});
  return points;
}

// A (span + 1)-square grid, span a power of two, inserted coarse to fine:
// most points fall exactly on an edge of the triangulation built so far.
std::vector<Vertex> grid_coarse_to_fine(int span) {
  std::vector<Vertex> points;
  for (int step = span; step >= 1; step /= 2)
    for (int row = 0; row <= span; row += step)
      for (int column = 0; column <= span; column += step)
        if (step == span || row % (2 * step) != 0 || column % (2 * step) != 0)
          points.push_back({static_cast<float>(column), static_cast<float>(row)});
  return points;
}

// Long collinear runs in several directions, crossing one another.
std::vector<Vertex> collinear_runs() {
  std::vector<Vertex> points;
  const int directions[][2] = {{1, 0}, {0, 1}, {1, 1}, {3, -2}, {-5, 7}};
  for (const auto& d : directions)
    for (int offset = -3; offset <= 3; offset += 2)
      for (int i = -60; i <= 60; ++i)
        points.push_back({static_cast<float>(i * d[0] + offset * d[1]),
                          static_cast<float>(i * d[1] - offset * d[0])});
  return points;
}

// All 100 lattice points on the circle of radius 65 (exactly cocircular),
// its centre, and the lattice points on two more concentric circles.
std::vector<Vertex> cocircular() {
  std::vector<Vertex> points;
  for (int radius_squared : {65 * 65, 25 * 25, 5 * 5})
    for (int x = -65; x <= 65; ++x)
      for (int y = -65; y <= 65; ++y)
        if (x * x + y * y == radius_squared)
          points.push_back({static_cast<float>(x), static_cast<float>(y)});
  points.push_back({0, 0});
  return points;
}

// Clusters of points 2e-5 apart: just outside the duplicate tolerance.
std::vector<Vertex> near_duplicates() {
  std::vector<Vertex> points;
  for (const auto& centre : {Vertex{1, 1}, Vertex{-2, 3}, Vertex{4, -1}})
    for (int i = -7; i <= 7; ++i)
      for (int j = -7; j <= 7; ++j) points.push_back({centre.x + i * 2e-5f, centre.y + j * 2e-5f});
  points.push_back({-10, -10});
  points.push_back({10, -10});
  points.push_back({0, 12});
  return points;
}

TEST(DelaunayProperty, HoldsForEveryTriangle) {
  const struct {
    const char* name;
    std::function<std::vector<Vertex>()> points;
    double hull_area;  // the area of the points' convex hull, which the triangles fill; 0: unknown
  } rows[] = {{"Random3000", [] { return random_points(3000); }, 0},
              // Large enough for insertion to prefetch ahead.
              {"Random80000", [] { return random_points(80000); }, 0},
              {"GridCoarseToFine", [] { return grid_coarse_to_fine(32); }, 32 * 32},
              // Degenerate and large enough to prefetch ahead.
              {"GridCoarseToFine256", [] { return grid_coarse_to_fine(256); }, 256 * 256},
              {"CollinearRuns", collinear_runs, 0},
              {"Cocircular", cocircular, 0},
              {"NearDuplicates", near_duplicates, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::vector<Vertex> points = row.points();
    const Result result = triangulate(points, 0);
    ASSERT_EQ(result.status, 1);
    ASSERT_FALSE(result.triangles.empty());
    long double area = 0;
    for (const Triangle& t : result.triangles) {
      const long double doubled = doubled_area(t.corner[0], t.corner[1], t.corner[2]);
      ASSERT_GT(doubled, 0) << "inverted or flat triangle";
      area += doubled / 2;
    }
    EXPECT_EQ(repeated_directed_edges(result.triangles), 0u);
    if (points.size() <= 5000) {
      EXPECT_EQ(non_delaunay_triangles(result.triangles, points), 0u);
    }
    if (const double hull = row.hull_area; hull > 0) {
      EXPECT_NEAR(static_cast<double>(area), hull, 1e-5 * hull);
    }
  }
}

}  // namespace
}  // namespace triangulate_test
