// Helpers of the region tests: plans built ring by ring, one call of
// TriangulateRegion, and checks of its triangles that are independent of
// the library: in exact integer arithmetic for plans on the integer grid
// (|coordinate| <= 8000 keeps every in-circle determinant inside int64).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <set>
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

struct P {
  std::int64_t x, y;
};
inline bool operator==(P a, P b) { return a.x == b.x && a.y == b.y; }
inline bool operator<(P a, P b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

inline int orient(P a, P b, P c) {
  const std::int64_t d = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
  return (d > 0) - (d < 0);
}
// For a, b, c counter-clockwise: 1 when d is strictly inside their circumcircle.
inline int in_circle(P a, P b, P c, P d) {
  const std::int64_t adx = a.x - d.x, ady = a.y - d.y, bdx = b.x - d.x, bdy = b.y - d.y,
                     cdx = c.x - d.x, cdy = c.y - d.y;
  const std::int64_t det = (adx * adx + ady * ady) * (bdx * cdy - cdx * bdy) +
                           (bdx * bdx + bdy * bdy) * (cdx * ady - adx * cdy) +
                           (cdx * cdx + cdy * cdy) * (adx * bdy - bdx * ady);
  return (det > 0) - (det < 0);
}
inline bool properly_cross(P a, P b, P c, P d) {
  return orient(a, b, c) * orient(a, b, d) < 0 && orient(c, d, a) * orient(c, d, b) < 0;
}

// Checks of a result for a plan on the integer grid.
class GridChecks {
 public:
  GridChecks(const Plan& plan, const Result& result) : result_(result) {
    for (std::size_t i = 0; i < plan.point_count(); ++i) {
      const double x = plan.xy[2 * i], y = plan.xy[2 * i + 1];
      EXPECT_TRUE(x == std::floor(x) && y == std::floor(y) && std::fabs(x) <= 8000 &&
                  std::fabs(y) <= 8000)
          << "not a grid plan";
      points_.push_back({static_cast<std::int64_t>(x), static_cast<std::int64_t>(y)});
    }
    std::size_t start = 0;
    for (unsigned int size : plan.rings) {
      for (unsigned int k = 0; k < size; ++k) {
        const P a = points_[start + k], b = points_[start + (k + 1) % size];
        if (!(a == b)) ring_edges_.push_back({a, b});
      }
      start += size;
    }
  }

  P corner(std::size_t triangle, int k) const { return points_[result_.corners[3 * triangle + k]]; }

  // Counter-clockwise, valid indices, each directed edge once, every
  // centroid inside the region, and the area is the region's.
  void expect_tiles_region(std::int64_t expected_double_area) const {
    std::set<std::pair<P, P>> directed;
    std::int64_t double_area = 0;
    for (std::size_t t = 0; t < result_.triangle_count(); ++t) {
      for (int k = 0; k < 3; ++k) ASSERT_LT(result_.corners[3 * t + k], points_.size());
      const P a = corner(t, 0), b = corner(t, 1), c = corner(t, 2);
      ASSERT_EQ(orient(a, b, c), 1) << "triangle " << t;
      double_area += (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
      for (int k = 0; k < 3; ++k)
        EXPECT_TRUE(directed.insert({corner(t, k), corner(t, (k + 1) % 3)}).second)
            << "edge used twice in one direction";
      EXPECT_TRUE(inside_region({a.x + b.x + c.x, a.y + b.y + c.y}, 3)) << "triangle " << t;
    }
    EXPECT_EQ(double_area, expected_double_area);
  }

  // No ring edge passes through the inside of a triangle: each is a chain
  // of triangle edges where the region borders it.
  void expect_ring_edges_kept() const {
    for (std::size_t t = 0; t < result_.triangle_count(); ++t) {
      const P c[3] = {corner(t, 0), corner(t, 1), corner(t, 2)};
      for (const auto& [p, q] : ring_edges_) {
        bool separated = false;
        for (int k = 0; k < 3 && !separated; ++k)
          separated = orient(c[k], c[(k + 1) % 3], p) <= 0 && orient(c[k], c[(k + 1) % 3], q) <= 0;
        const int sides[3] = {orient(p, q, c[0]), orient(p, q, c[1]), orient(p, q, c[2])};
        separated = separated || std::all_of(sides, sides + 3, [](int s) { return s >= 0; }) ||
                    std::all_of(sides, sides + 3, [](int s) { return s <= 0; });
        EXPECT_TRUE(separated) << "ring edge through triangle " << t;
      }
    }
  }

  // No vertex of the mesh lies inside a triangle's circumcircle where it
  // can be seen from the triangle: from its centroid or from near a corner,
  // without crossing a ring edge.
  void expect_constrained_delaunay() const {
    std::set<P> vertices;
    for (unsigned int index : result_.corners) vertices.insert(points_[index]);
    for (std::size_t t = 0; t < result_.triangle_count(); ++t) {
      const P a = corner(t, 0), b = corner(t, 1), c = corner(t, 2);
      for (const P v : vertices) {
        if (in_circle(a, b, c, v) <= 0) continue;
        // Sight points scaled by 30: the centroid and points a tenth in from the corners.
        const P sights[4] = {{10 * (a.x + b.x + c.x), 10 * (a.y + b.y + c.y)},
                             {3 * (8 * a.x + b.x + c.x), 3 * (8 * a.y + b.y + c.y)},
                             {3 * (a.x + 8 * b.x + c.x), 3 * (a.y + 8 * b.y + c.y)},
                             {3 * (a.x + b.x + 8 * c.x), 3 * (a.y + b.y + 8 * c.y)}};
        const P target{30 * v.x, 30 * v.y};
        for (const P sight : sights) {
          bool blocked = false;
          for (const auto& [p, q] : ring_edges_)
            blocked = blocked ||
                      properly_cross(sight, target, {30 * p.x, 30 * p.y}, {30 * q.x, 30 * q.y});
          EXPECT_TRUE(blocked) << "vertex (" << v.x << ", " << v.y
                               << ") seen inside the circle of triangle " << t;
          if (!blocked) return;
        }
      }
    }
  }

  // Even-odd: the point s / scale against every ring edge.
  bool inside_region(P s, std::int64_t scale) const {
    bool inside = false;
    for (const auto& [p0, q0] : ring_edges_) {
      const P p{p0.x * scale, p0.y * scale}, q{q0.x * scale, q0.y * scale};
      if ((p.y > s.y) != (q.y > s.y) && orient(p, q, s) == (q.y > p.y ? 1 : -1)) inside = !inside;
    }
    return inside;
  }

 private:
  const Result& result_;
  std::vector<P> points_;
  std::vector<std::pair<P, P>> ring_edges_;
};

// Checks in doubles, for meshes with points the library added (and for
// plans off the grid): every triangle counter-clockwise, every centroid
// inside the region by the even-odd rule (centroids lie well away from the
// rings), the area the region's to 1e-9. Returns the smallest angle in degrees.
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

// A random floor plan: an outline whose radius wobbles by up to `wobble`
// from vertex to vertex (150 makes spikes of about 20 degrees, 20 none
// below 100) around a grid of rectangular openings of random size, plus
// random interior points.
inline Plan random_plan(unsigned seed, int outline_points, int wobble, int openings_per_side,
                        int interior) {
  std::mt19937 generator(seed);
  std::uniform_int_distribution<int> radius_change(-wobble, wobble);
  Plan plan;
  Ring outline;
  const double kPi = 3.14159265358979323846;
  for (int i = 0; i < outline_points; ++i) {
    const double angle = 2 * kPi * i / outline_points;
    const int radius = 5500 + radius_change(generator);
    outline.push_back({std::round(radius * std::cos(angle)), std::round(radius * std::sin(angle))});
  }
  plan.ring(outline);
  const int cell = 6000 / openings_per_side;
  std::uniform_int_distribution<int> size(cell / 8, cell / 2 - 2);
  for (int row = 0; row < openings_per_side; ++row)
    for (int column = 0; column < openings_per_side; ++column) {
      const int cx = -3000 + column * cell + cell / 2, cy = -3000 + row * cell + cell / 2;
      const int w = size(generator), h = size(generator);
      plan.ring(rectangle(cx - w, cy - h, cx + w, cy + h));
    }
  std::uniform_int_distribution<int> anywhere(-5800, 5800);
  for (int i = 0; i < interior; ++i) plan.point(anywhere(generator), anywhere(generator));
  return plan;
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
