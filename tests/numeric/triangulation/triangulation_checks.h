// Helpers of the triangulation tests: one call of the export turned into a
// vector, and independent geometric checks of the triangles it returns.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
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
inline std::size_t non_delaunay_triangles(const std::vector<Triangle>& triangles,
                                          const std::vector<Vertex>& points) {
  std::size_t bad = 0;
  for (const Triangle& t : triangles)
    bad += std::any_of(points.begin(), points.end(), [&t](const Vertex& p) {
      return clearly_inside_circumcircle(t.corner[0], t.corner[1], t.corner[2], p);
    });
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

}  // namespace triangulate_test
