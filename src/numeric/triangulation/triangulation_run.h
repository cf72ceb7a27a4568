// One triangulation run: the boundary's box and the enclosing triangle, the
// Delaunay triangulation of all points, and the triangles emitted from it.
#pragma once

#include "numeric/triangulation/triangle_array.h"

namespace qnutil::triangulation {

// Triangulates `point_count` points (x, y pairs), the first `boundary_count`
// of which form the boundary polygon. Empty for invalid counts.
TriangleArray triangulate(int point_count, unsigned int boundary_count, const float* points);

}  // namespace qnutil::triangulation
