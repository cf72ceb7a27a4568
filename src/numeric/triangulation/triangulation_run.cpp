#include "numeric/triangulation/triangulation_run.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "numeric/triangulation/boundary_clip.h"
#include "numeric/triangulation/delaunay_builder.h"
#include "numeric/triangulation/face_emission.h"
#include "numeric/triangulation/predicates.h"

namespace qnutil::triangulation {
namespace {

// The box starts from fixed values that take part in the extremes: a
// boundary entirely right of x = 10000 still gets min_x = 10000, and no
// boundary at all leaves an inverted box.
Box boundary_box(const std::vector<Point>& vertices, std::size_t boundary_count) {
  Box box{10000.0, 10000.0, -10000.0, -10000.0};
  for (std::size_t i = 0; i < boundary_count; ++i) {
    const Point& p = vertices[i];
    if (p.x > box.max_x) box.max_x = p.x;
    if (p.x < box.min_x) box.min_x = p.x;
    if (p.y > box.max_y) box.max_y = p.y;
    if (p.y < box.min_y) box.min_y = p.y;
  }
  return box;
}

bool is_finite(const Point& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

// Only points strictly inside the enclosing triangle can be inserted; the
// others (not finite, or far outside the boundary's box) are left out.
bool strictly_inside(const Point& p, const Point& a, const Point& b, const Point& c) {
  return is_finite(p) && orientation(a, b, p) > 0 && orientation(b, c, p) > 0 &&
         orientation(c, a, p) > 0;
}

}  // namespace

TriangleArray triangulate(int point_count, unsigned int boundary_count, const float* points) {
  TriangleArray out;
  if (point_count < 3 || boundary_count > static_cast<unsigned int>(point_count) ||
      points == nullptr)
    return out;
  const auto n = static_cast<std::size_t>(point_count);
  std::vector<Point> vertices(n);
  for (std::size_t i = 0; i < n; ++i) vertices[i] = {points[2 * i], points[2 * i + 1]};

  const Box box = boundary_box(vertices, boundary_count);
  // Deliberately unequal reach: B lies 3 widths right of the box, C 4 heights above it.
  const double width = box.max_x - box.min_x, height = box.max_y - box.min_y;
  const std::array<Point, 3> corners{Point{box.min_x - width, box.min_y - height},
                                     Point{box.min_x + 4.0 * width, box.min_y - height},
                                     Point{box.min_x - width, box.min_y + 5.0 * height}};
  const auto& [a, b, c] = corners;
  // A boundary with no extent in x or y (or an infinite one) gives no
  // triangle to start from, hence no triangles.
  if (!is_finite(a) || !is_finite(b) || !is_finite(c) || orientation(a, b, c) <= 0) return out;

  std::vector<VertexId> order;
  order.reserve(n);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  Point low{kInfinity, kInfinity}, high{-kInfinity, -kInfinity};
  for (std::size_t i = 0; i < n; ++i) {
    if (!strictly_inside(vertices[i], a, b, c)) continue;
    order.push_back(static_cast<VertexId>(i));
    const Point& p = vertices[i];
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }

  DelaunayBuilder builder(vertices, corners, low, high, order.size());
  builder.insert_all(order);

  // k points inside a triangle make 2k + 1 faces; the faces along the
  // boundary, clipped, yield a few triangles per boundary point more.
  out.reserve(2 * order.size() + 1 + 4 * std::size_t{boundary_count} + 16);
  const BoundaryClip clip(box, vertices.data(), boundary_count);
  emit_faces(builder.mesh(), clip, out);
  return out;
}

}  // namespace qnutil::triangulation
