// Helpers of the triangulation tests: one call of the export turned into a
// vector, and independent geometric checks of the triangles it returns.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <iterator>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"

namespace triangulate_test {

struct Vertex {
  float x;
  float y;
};

struct Triangle {
  Vertex corner[3];
};

struct Result {
  int status = -1;
  bool array_given = false;  // an empty result is still an array
  std::vector<Triangle> triangles;
};

// Triangulieren over `points` with the first `boundary` of them as the
// boundary; the array is released again with FreeTriangs (which must clear it).
inline Result triangulate(const std::vector<Vertex>& points, unsigned int boundary) {
  static_assert(sizeof(Vertex) == 8 && sizeof(Triangle) == 24, "the export's layouts");
  Result result;
  void* array = nullptr;
  unsigned int count = 0;
  result.status = Triangulieren(static_cast<int>(points.size()), boundary,
                                points.empty() ? nullptr : &points[0].x, &array, &count);
  result.array_given = array != nullptr;
  if (array != nullptr) {
    const auto* triangles = static_cast<const Triangle*>(array);
    result.triangles.assign(triangles, triangles + count);
  }
  EXPECT_EQ(FreeTriangs(&array), 1);
  EXPECT_EQ(array, nullptr);
  return result;
}

// Twice the signed area of a triangle, in long double.
inline long double doubled_area(const Vertex& a, const Vertex& b, const Vertex& c) {
  return (static_cast<long double>(b.x) - a.x) * (static_cast<long double>(c.y) - a.y) -
         (static_cast<long double>(b.y) - a.y) * (static_cast<long double>(c.x) - a.x);
}

// True when d lies inside the circumcircle of counter-clockwise a, b, c by
// more than the rounding error of the evaluation.
inline bool clearly_inside_circumcircle(const Vertex& a, const Vertex& b, const Vertex& c,
                                        const Vertex& d) {
  using L = long double;
  const L adx = L(a.x) - d.x, ady = L(a.y) - d.y;
  const L bdx = L(b.x) - d.x, bdy = L(b.y) - d.y;
  const L cdx = L(c.x) - d.x, cdy = L(c.y) - d.y;
  const L a_lift = adx * adx + ady * ady, b_lift = bdx * bdx + bdy * bdy,
          c_lift = cdx * cdx + cdy * cdy;
  const L det = a_lift * (bdx * cdy - cdx * bdy) + b_lift * (cdx * ady - adx * cdy) +
                c_lift * (adx * bdy - bdx * ady);
  const L permanent = a_lift * (std::fabs(bdx * cdy) + std::fabs(cdx * bdy)) +
                      b_lift * (std::fabs(cdx * ady) + std::fabs(adx * cdy)) +
                      c_lift * (std::fabs(adx * bdy) + std::fabs(bdx * ady));
  return det > 64 * LDBL_EPSILON * permanent;
}

// Number of triangles whose circumcircle clearly contains one of `points`.
// The points are bucketed in a square grid, and each circle is compared with
// the points of the buckets its bounding square touches (all of them when the
// circle is too large or flat to place).
inline std::size_t non_delaunay_triangles(const std::vector<Triangle>& triangles,
                                          const std::vector<Vertex>& points) {
  using L = long double;
  std::vector<Vertex> finite;
  std::copy_if(points.begin(), points.end(), std::back_inserter(finite),
               [](const Vertex& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
  if (finite.empty()) return 0;
  L low_x = finite[0].x, low_y = finite[0].y, high_x = low_x, high_y = low_y;
  for (const Vertex& p : finite) {
    low_x = std::min<L>(low_x, p.x), high_x = std::max<L>(high_x, p.x);
    low_y = std::min<L>(low_y, p.y), high_y = std::max<L>(high_y, p.y);
  }
  const long side = std::max(1L, std::lround(std::sqrt(static_cast<double>(finite.size()) / 2)));
  const L cell = std::max(high_x - low_x, high_y - low_y) / side + 1e-30L;
  auto bucket_of = [&](L value, L low) {
    return std::clamp(static_cast<long>((value - low) / cell), 0L, side - 1);
  };
  std::vector<std::vector<Vertex>> buckets(static_cast<std::size_t>(side * side));
  for (const Vertex& p : finite)
    buckets[bucket_of(p.y, low_y) * side + bucket_of(p.x, low_x)].push_back(p);

  std::size_t bad = 0;
  for (const Triangle& t : triangles) {
    const Vertex &a = t.corner[0], &b = t.corner[1], &c = t.corner[2];
    const L bx = L(b.x) - a.x, by = L(b.y) - a.y, cx = L(c.x) - a.x, cy = L(c.y) - a.y;
    const L d = 2 * (bx * cy - by * cx);
    const L ux = (cy * (bx * bx + by * by) - by * (cx * cx + cy * cy)) / d;
    const L uy = (bx * (cx * cx + cy * cy) - cx * (bx * bx + by * by)) / d;
    const L radius = std::sqrt(ux * ux + uy * uy) * (1 + 1e-9L) + cell * 1e-9L;
    const bool placeable = std::isfinite(static_cast<double>(radius)) && radius < 4 * side * cell;
    const long x0 = placeable ? bucket_of(a.x + ux - radius, low_x) : 0,
               x1 = placeable ? bucket_of(a.x + ux + radius, low_x) : side - 1;
    const long y0 = placeable ? bucket_of(a.y + uy - radius, low_y) : 0,
               y1 = placeable ? bucket_of(a.y + uy + radius, low_y) : side - 1;
    bool inside = false;
    for (long y = y0; y <= y1 && !inside; ++y)
      for (long x = x0; x <= x1 && !inside; ++x)
        for (const Vertex& p : buckets[y * side + x])
          inside = inside || clearly_inside_circumcircle(a, b, c, p);
    bad += inside;
  }
  return bad;
}

// Number of directed edges that occur more than once (overlapping triangles
// share a directed edge, or fold over one another).
inline std::size_t repeated_directed_edges(const std::vector<Triangle>& triangles) {
  std::map<std::pair<std::pair<float, float>, std::pair<float, float>>, int> seen;
  std::size_t repeated = 0;
  for (const Triangle& t : triangles) {
    for (int i = 0; i < 3; ++i) {
      const Vertex& from = t.corner[i];
      const Vertex& to = t.corner[(i + 1) % 3];
      if (++seen[{{from.x, from.y}, {to.x, to.y}}] == 2) ++repeated;
    }
  }
  return repeated;
}

// Area of the convex hull of the points.
inline long double hull_area(std::vector<Vertex> points) {
  std::sort(points.begin(), points.end(), [](const Vertex& a, const Vertex& b) {
    return a.x < b.x || (a.x == b.x && a.y < b.y);
  });
  std::vector<Vertex> hull(2 * points.size() + 1);
  std::size_t k = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {  // lower chain
    while (k >= 2 && doubled_area(hull[k - 2], hull[k - 1], points[i]) <= 0) --k;
    hull[k++] = points[i];
  }
  for (std::size_t i = points.size() - 1, lower = k + 1; i-- > 0;) {  // upper chain
    while (k >= lower && doubled_area(hull[k - 2], hull[k - 1], points[i]) <= 0) --k;
    hull[k++] = points[i];
  }
  long double twice = 0;
  for (std::size_t i = 1; i + 1 < k; ++i) twice += doubled_area(hull[0], hull[i], hull[i + 1]);
  return twice / 2;
}

}  // namespace triangulate_test
