#include "numeric/triangulation/region_triangulation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "numeric/triangulation/region_mesh.h"
#include "numeric/triangulation/region_refinement.h"
#include "numeric/triangulation/ring_edges.h"
#include "numeric/triangulation/spatial_order.h"
#include "qnutil/triangulate.h"

namespace qnutil::triangulation::region {
namespace {

constexpr std::uint32_t kMostPoints = 100000000;  // points and added points together
// Magnitudes within [kSmallest, kLargest] keep every product the exact
// predicates form (up to the fourth power of a coordinate difference) clear
// of overflow and underflow; smaller ones are taken as 0.
constexpr double kLargest = 1e30;
constexpr double kSmallest = 1e-30;

double admitted(double value) { return std::fabs(value) < kSmallest ? 0.0 : value; }

// Reads the points; false when one of them is out of range.
bool read_points(const RegionInput& input, std::vector<Point>& points) {
  points.resize(input.point_count);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double x = input.coordinates[2 * i], y = input.coordinates[2 * i + 1];
    if (!(std::fabs(x) <= kLargest && std::fabs(y) <= kLargest)) return false;
    points[i] = {admitted(x), admitted(y)};
  }
  return true;
}

// Crossing the rings an odd number of times leads from outside in: a walk
// over the triangles from one at an enclosing corner tells each one's side.
void mark_inside(RegionMesh& mesh) {
  const auto& triangles = mesh.triangles();
  std::vector<bool> seen(triangles.size());
  std::vector<TriangleId> pending{mesh.triangle_at(mesh.input_count())};
  seen[pending.back()] = true;
  while (!pending.empty()) {
    const TriangleId t = pending.back();
    pending.pop_back();
    for (unsigned i = 0; i < 3; ++i) {
      const Side beyond = triangles[t].across[i];
      if (beyond == kNoSide || seen[triangle_of(beyond)]) continue;
      const bool flips = (mesh.flags(side_of(t, i)) & kOddCrossing) != 0;
      mesh.set_inside(triangle_of(beyond), mesh.inside(t) != flips);
      seen[triangle_of(beyond)] = true;
      pending.push_back(triangle_of(beyond));
    }
  }
}

// The caller's names of the vertices: the points' own indices (a repeated
// point by its first occurrence: the insertion order is random in part, so
// it may have been inserted after a repetition), then the added points.
std::vector<std::uint32_t> caller_names(const RegionMesh& mesh,
                                        const std::vector<VertexId>& vertex_of) {
  std::vector<std::uint32_t> name(mesh.input_count() + 3 + mesh.added_count());
  for (VertexId v = 0; v < mesh.input_count(); ++v) name[v] = v;
  for (VertexId i = 0; i < vertex_of.size(); ++i)
    name[vertex_of[i]] = std::min(name[vertex_of[i]], i);
  for (std::size_t k = 0; k < mesh.added_count(); ++k)
    name[mesh.input_count() + 3 + k] = static_cast<std::uint32_t>(mesh.input_count() + k);
  return name;
}

void collect(const RegionMesh& mesh, const std::vector<VertexId>& vertex_of, RegionResult& result) {
  const std::vector<std::uint32_t> name = caller_names(mesh, vertex_of);
  const auto& triangles = mesh.triangles();
  std::size_t inside = 0;
  for (TriangleId t = 0; t < triangles.size(); ++t) inside += mesh.inside(t);
  result.triangles.reserve(3 * inside);
  for (TriangleId t = 0; t < triangles.size(); ++t)
    if (mesh.inside(t))
      for (const VertexId corner : triangles[t].corner) result.triangles.push_back(name[corner]);
  for (std::size_t k = 0; k < mesh.added_count(); ++k) {
    result.added.push_back(mesh.added_points()[k].x);
    result.added.push_back(mesh.added_points()[k].y);
  }
}

}  // namespace

RegionResult triangulate_region(const RegionInput& input) {
  RegionResult result{QNUTIL_REGION_OK, {}, {}, 0};
  std::uint64_t ring_points = 0;
  for (std::uint32_t r = 0; r < input.ring_count; ++r) ring_points += input.ring_sizes[r];
  if (input.point_count > kMostPoints || ring_points > input.point_count ||
      !(input.min_angle_degrees >= 0 &&
        input.min_angle_degrees <= QNUTIL_REGION_LARGEST_MIN_ANGLE) ||
      input.max_added > kMostPoints - input.point_count) {
    result.code = QNUTIL_REGION_BAD_ARGUMENT;
    return result;
  }
  std::vector<Point> points;
  if (!read_points(input, points)) {
    result.code = QNUTIL_REGION_BAD_COORDINATE;
    return result;
  }
  if (ring_points == 0) return result;

  // A repeated point becomes the vertex inserted first at its position.
  std::vector<VertexId> vertex_of(points.size());
  const std::vector<std::uint32_t> order = spatial_order(points);
  RegionMesh mesh(std::move(points));
  for (const std::uint32_t i : order) vertex_of[i] = mesh.insert(i);

  RingEdgeInserter ring_edges(mesh);
  std::uint32_t ring_start = 0;
  for (std::uint32_t r = 0; r < input.ring_count; ++r) {
    const std::uint32_t size = input.ring_sizes[r];
    for (std::uint32_t k = 0; k < size; ++k) {
      const VertexId a = vertex_of[ring_start + k];
      const VertexId b = vertex_of[ring_start + (k + 1 == size ? 0 : k + 1)];
      if (!ring_edges.insert(a, b)) {
        result.code = QNUTIL_REGION_CROSSING;
        result.crossing_point = ring_start + k;
        return result;
      }
    }
    ring_start += size;
  }
  mark_inside(mesh);
  refine(mesh, {input.min_angle_degrees, input.max_added});
  collect(mesh, vertex_of, result);
  return result;
}

}  // namespace qnutil::triangulation::region
