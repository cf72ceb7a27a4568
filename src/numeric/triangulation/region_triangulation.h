// The constrained Delaunay triangulation of a region bounded by rings,
// behind TriangulateRegion and TriangulateRegionRefined: points in, the
// inside triangles out as index triples into the caller's points followed
// by the points refinement added.
#pragma once

#include <cstdint>
#include <vector>

namespace qnutil::triangulation::region {

struct RegionInput {
  const double* coordinates;  // x, y per point
  std::uint32_t point_count;
  const std::uint32_t* ring_sizes;
  std::uint32_t ring_count;
  double min_angle_degrees;  // 0: no refinement
  std::uint32_t max_added;
};

struct RegionResult {
  int code;                              // a QNUTIL_REGION_* result
  std::vector<std::uint32_t> triangles;  // three corners each, counter-clockwise
  std::vector<double> added;             // x, y of each added point
  std::uint32_t crossing_point;          // with QNUTIL_REGION_CROSSING
};

// Inputs from the export are already checked for null pointers.
RegionResult triangulate_region(const RegionInput& input);

}  // namespace qnutil::triangulation::region
