// The order in which points are inserted into a region mesh: a biased
// randomised order (rounds of doubling size, each point drawn into a round
// at random) with every round sorted along a Hilbert curve over the points'
// box. Within a round each point lies near the one before, so the walk that
// locates it is short; the random rounds keep the flips per point few even
// when the input is sorted along a smooth curve, where a purely spatial
// order makes every new point flip a long fan of edges. The draw is a hash
// of the point's index, so the order (and with it the mesh) is the same on
// every platform.
#pragma once

#include <cstdint>
#include <vector>

#include "numeric/triangulation/predicates.h"

namespace qnutil::triangulation::region {

// Up to 2^27 points.
std::vector<std::uint32_t> spatial_order(const std::vector<Point>& points);

}  // namespace qnutil::triangulation::region
