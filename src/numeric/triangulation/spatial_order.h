// The order in which points are inserted into a region mesh: along a
// Hilbert curve over their box, so that each point lies near the one
// before and the walk that locates it is short. Points at one position
// keep their input order, so the first of them is the one inserted.
#pragma once

#include <cstdint>
#include <vector>

#include "numeric/triangulation/predicates.h"

namespace qnutil::triangulation::region {

std::vector<std::uint32_t> spatial_order(const std::vector<Point>& points);

}  // namespace qnutil::triangulation::region
