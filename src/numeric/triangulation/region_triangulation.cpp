#include "numeric/triangulation/region_triangulation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "numeric/triangulation/region_mesh.h"
#include "numeric/triangulation/ring_edges.h"
#include "numeric/triangulation/spatial_order.h"
#include "qnutil/triangulate.h"

namespace qnutil::triangulation::region {
namespace {

constexpr std::uint32_t kMostPoints = 100000000;
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
std::vector<std::uint32_t> inside_triangles(const RegionMesh& mesh) {
  const auto& triangles = mesh.triangles();
  enum : std::uint8_t { kUnknown, kOutside, kInside };
  std::vector<std::uint8_t> state(triangles.size(), kUnknown);
  std::vector<TriangleId> pending{mesh.triangle_at(static_cast<VertexId>(mesh.input_count()))};
  state[pending.back()] = kOutside;
  std::size_t inside = 0;
  while (!pending.empty()) {
    const TriangleId t = pending.back();
    pending.pop_back();
    for (unsigned i = 0; i < 3; ++i) {
      const Side beyond = triangles[t].across[i];
      if (beyond == kNoSide || state[triangle_of(beyond)] != kUnknown) continue;
      const bool flips = (mesh.flags(side_of(t, i)) & kOddCrossing) != 0;
      state[triangle_of(beyond)] = (state[t] == kInside) != flips ? kInside : kOutside;
      inside += state[triangle_of(beyond)] == kInside;
      pending.push_back(triangle_of(beyond));
    }
  }
  std::vector<std::uint32_t> corners;
  corners.reserve(3 * inside);
  for (std::size_t t = 0; t < triangles.size(); ++t)
    if (state[t] == kInside) corners.insert(corners.end(), triangles[t].corner, triangles[t].corner + 3);
  return corners;
}

// The insertion order is random in part, so a repeated point may have been
// inserted before its first occurrence: the caller sees each vertex under
// the lowest index of the points at its position.
void name_by_first_occurrence(const std::vector<VertexId>& vertex_of,
                              std::vector<std::uint32_t>& corners) {
  std::vector<VertexId> name;
  for (VertexId i = 0; i < vertex_of.size(); ++i) {
    const VertexId v = vertex_of[i];
    if (v == i) continue;
    if (name.empty()) {
      name.resize(vertex_of.size());
      for (VertexId k = 0; k < name.size(); ++k) name[k] = k;
    }
    name[v] = std::min(name[v], i);
  }
  if (name.empty()) return;
  for (std::uint32_t& corner : corners) corner = name[corner];
}

}  // namespace

RegionResult triangulate_region(const RegionInput& input) {
  RegionResult result{QNUTIL_REGION_OK, {}, 0};
  std::uint64_t ring_points = 0;
  for (std::uint32_t r = 0; r < input.ring_count; ++r) ring_points += input.ring_sizes[r];
  if (input.point_count > kMostPoints || ring_points > input.point_count) {
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
  result.triangles = inside_triangles(mesh);
  name_by_first_occurrence(vertex_of, result.triangles);
  return result;
}

}  // namespace qnutil::triangulation::region
