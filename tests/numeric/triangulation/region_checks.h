// Helpers of the region tests: plans built ring by ring, one call of
// TriangulateRegion, and checks of its triangles that are independent of
// the library.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"

namespace region_test {

using Ring = std::vector<std::pair<double, double>>;

inline Ring rectangle(double x0, double y0, double x1, double y1) {
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

struct Plan {
  std::vector<double> xy;
  std::vector<unsigned int> rings;
  std::size_t point_count() const { return xy.size() / 2; }
  void ring(const Ring& points) {
    for (auto [x, y] : points) xy.push_back(x), xy.push_back(y);
    rings.push_back(static_cast<unsigned int>(points.size()));
  }
  // Interior points go after every ring.
  void point(double x, double y) { xy.push_back(x), xy.push_back(y); }
};

inline Plan rings(std::initializer_list<Ring> list) {
  Plan plan;
  for (const Ring& ring : list) plan.ring(ring);
  return plan;
}

// One call of TriangulateRegion, or of TriangulateRegionRefined when a
// bound is given; the arrays are copied and released again.
struct Result {
  int code = 1;
  std::vector<unsigned int> corners;  // three per triangle
  std::vector<double> xy;             // the plan's points, then the added ones
  std::size_t added = 0;
  unsigned int crossing_point = 0;
  std::size_t triangle_count() const { return corners.size() / 3; }
};

inline Result triangulate(const Plan& plan, std::optional<double> min_angle = {},
                          unsigned int cap = 0) {
  Result result;
  unsigned int* triangles = nullptr;
  double* added = nullptr;
  unsigned int count = 99, added_count = 0;
  result.crossing_point = 12345;
  const auto points = static_cast<unsigned int>(plan.point_count());
  const auto ring_count = static_cast<unsigned int>(plan.rings.size());
  result.code = !min_angle
                    ? TriangulateRegion(plan.xy.data(), points, plan.rings.data(), ring_count,
                                        &triangles, &count, &result.crossing_point)
                    : TriangulateRegionRefined(plan.xy.data(), points, plan.rings.data(),
                                               ring_count, *min_angle, cap, &triangles, &count,
                                               &added, &added_count, &result.crossing_point);
  if (result.code != QNUTIL_REGION_OK) {
    EXPECT_TRUE(triangles == nullptr && added == nullptr && count == 0 && added_count == 0);
    return result;
  }
  EXPECT_NE(triangles, nullptr);  // arrays also when empty
  EXPECT_EQ(added == nullptr, !min_angle);
  result.corners.assign(triangles, triangles + 3 * std::size_t{count});
  result.xy = plan.xy;
  if (added) result.xy.insert(result.xy.end(), added, added + 2 * std::size_t{added_count});
  result.added = added_count;
  FreeRegionTriangles(&triangles);
  FreeRegionPoints(&added);
  EXPECT_TRUE(triangles == nullptr && added == nullptr);
  return result;
}

// Even-odd: whether (x, y) lies inside the rings.
inline bool inside_plan(const Plan& plan, double x, double y) {
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

// Every triangle counter-clockwise, every centroid inside the region
// (centroids lie well away from the rings), the area the region's to 1e-9.
// Returns the smallest angle in degrees.
inline double expect_tiles(const Plan& plan, const Result& result, double region_area) {
  double area = 0, smallest = 180;
  for (std::size_t t = 0; t < result.triangle_count(); ++t) {
    const double* c[3];
    for (int k = 0; k < 3; ++k) {
      EXPECT_LT(result.corners[3 * t + k], result.xy.size() / 2);
      c[k] = &result.xy[2 * result.corners[3 * t + k]];
    }
    const double twice =
        (c[1][0] - c[0][0]) * (c[2][1] - c[0][1]) - (c[1][1] - c[0][1]) * (c[2][0] - c[0][0]);
    EXPECT_GT(twice, 0) << "triangle " << t;
    area += twice / 2;
    EXPECT_TRUE(
        inside_plan(plan, (c[0][0] + c[1][0] + c[2][0]) / 3, (c[0][1] + c[1][1] + c[2][1]) / 3))
        << "triangle " << t;
    for (int k = 0; k < 3; ++k) {
      const double* a = c[k];
      const double *b = c[(k + 1) % 3], *d = c[(k + 2) % 3];
      const double ux = b[0] - a[0], uy = b[1] - a[1], vx = d[0] - a[0], vy = d[1] - a[1];
      smallest = std::min(smallest, std::atan2(std::fabs(ux * vy - uy * vx), ux * vx + uy * vy) *
                                        180 / 3.14159265358979323846);
    }
  }
  EXPECT_NEAR(area, region_area, 1e-9 * region_area);
  return smallest;
}

// Twice the signed area of ring r (exact for plans on the grid).
inline double twice_ring_area(const Plan& plan, std::size_t r) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < r; ++i) start += plan.rings[i];
  double sum = 0;
  for (std::size_t k = 0; k < plan.rings[r]; ++k) {
    const std::size_t i = start + k, j = start + (k + 1) % plan.rings[r];
    sum += plan.xy[2 * i] * plan.xy[2 * j + 1] - plan.xy[2 * j] * plan.xy[2 * i + 1];
  }
  return sum;
}

// The area of an outline (ring 0) less its openings (the other rings).
inline double outline_less_openings(const Plan& plan) {
  double area = 0;
  for (std::size_t r = 0; r < plan.rings.size(); ++r)
    area += (r == 0 ? 0.5 : -0.5) * std::fabs(twice_ring_area(plan, r));
  return area;
}

}  // namespace region_test
