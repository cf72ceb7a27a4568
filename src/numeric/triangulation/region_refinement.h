// Quality refinement of a region mesh (after Ruppert): triangles inside the
// region whose smallest angle is below a bound get their circumcentre
// inserted, and ring edges that a vertex encroaches on (one inside the
// circle over the edge as diameter) are split at their midpoints, until no
// inside triangle is bad or the cap on added points is reached. Small
// angles between ring edges cannot be mended: triangles there shrink
// towards the corner only down to a millionth of the plan's extent.
#pragma once

#include <cstdint>

#include "numeric/triangulation/region_mesh.h"

namespace qnutil::triangulation::region {

struct RefinementLimits {
  double min_angle_degrees;  // 0 for none
  std::uint32_t max_added;
};

// The mesh's triangles must carry their inside flags.
void refine(RegionMesh& mesh, const RefinementLimits& limits);

}  // namespace qnutil::triangulation::region
