// Turns the finished subdivision into triangles: every face is walked once
// (records in creation order, each primal direction in turn), faces inside
// the enclosing triangle are fanned out, faces touching its corners are
// handed to the boundary clip.
#pragma once

#include <vector>

#include "numeric/triangulation/boundary_clip.h"
#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"

namespace qnutil::triangulation {

// Vertices numbered `first_corner` and above are the enclosing triangle's.
// Marks every primal edge visited.
void emit_faces(QuadEdgeMesh& mesh, VertexId first_corner, const BoundaryClip& clip, std::vector<float>& out);

}  // namespace qnutil::triangulation
