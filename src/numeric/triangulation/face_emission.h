// Turns the finished subdivision into triangles in face-collection order:
// records in creation order, each primal direction in turn, a face taken at
// the first of its edges met that way and read from that edge on. Faces
// inside the enclosing triangle are emitted as they are, faces touching its
// corners are handed to the boundary clip.
#pragma once

#include "numeric/triangulation/boundary_clip.h"
#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"

namespace qnutil::triangulation {

void emit_faces(const QuadEdgeMesh& mesh, const BoundaryClip& clip, TriangleArray& out);

}  // namespace qnutil::triangulation
