// Insertion in input order visits the mesh at random places, and on a mesh
// far larger than the caches nearly every record a walk touches is a miss
// that stalls the walk. The prefetcher runs a light copy of the walk for
// each of the next few points, one dependent load per point and insertion,
// so that many loads are in flight at once; when a point's turn comes, the
// records its walk and its Delaunay repair need are mostly loaded. It only
// reads the mesh and never decides anything: a copy that goes astray on a
// mesh changed in between just loads records for nothing.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"
#include "numeric/triangulation/vertex_index.h"

namespace qnutil::triangulation {

class WalkPrefetcher {
 public:
  // How many insertions ahead a point's copy of the walk starts.
  static constexpr std::size_t kAhead = 16;

  WalkPrefetcher(const std::vector<Point>& vertices, const std::vector<VertexId>& order, const VertexIndex& index,
                 const QuadEdgeMesh& mesh)
      : vertices_(vertices), order_(order), index_(index), mesh_(mesh) {}

  // To be called just before the point at `position` in the order is
  // inserted: starts the copy for the point kAhead further on and moves each
  // running copy one load ahead.
  void advance(std::size_t position);

 private:
  // After `face`, the stages load the faces the Delaunay repair is likely to
  // look at: the three neighbours of the face found, then the faces beyond
  // each neighbour's two far edges, one dependent load at a time.
  enum class Stage { idle, cell, edge, face, neighbours, far_edges, beyond, last_beyond };
  struct Scout {
    Point p;
    Stage stage = Stage::idle;
    EdgeRef e = 0;
    unsigned steps = 0;
  };

  void step(Scout& scout) const;
  // The sides of the face found, its left face, counter-clockwise from it.
  std::array<EdgeRef, 3> sides(EdgeRef face) const;

  const std::vector<Point>& vertices_;
  const std::vector<VertexId>& order_;
  const VertexIndex& index_;
  const QuadEdgeMesh& mesh_;
  std::array<Scout, kAhead> scouts_{};
};

}  // namespace qnutil::triangulation
