// Insertion in input order visits the mesh at random places, and on a mesh
// far larger than the caches nearly every record a walk touches is a miss
// that stalls the walk. The prefetcher runs a light copy of the walk for
// each of the next few points, one dependent load per point and insertion,
// so that many loads are in flight at once; when a point's turn comes, the
// records its walk and its Delaunay repair need are mostly loaded, and its
// real walk starts at the face the copy arrived at. The copy only reads the
// mesh and guesses with estimated tests; the real walk decides exactly, and
// a copy that goes astray on a mesh changed in between just loads records
// for nothing.
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

  WalkPrefetcher(const std::vector<Point>& vertices, const std::vector<VertexId>& order,
                 const VertexIndex& index, const QuadEdgeMesh& mesh)
      : vertices_(vertices), order_(order), index_(index), mesh_(mesh) {}

  // To be called just before the point at `position` in the order is
  // inserted: starts the copy for the point kAhead further on and moves each
  // running copy one load ahead.
  void advance(std::size_t position);
  // An edge of the face the copy for the point at `position` arrived at, or
  // VertexIndex::kNone; to be asked before advance(position).
  EdgeRef face_found(std::size_t position) const { return scouts_[position % kAhead].face; }

 private:
  // After `face`, the copy follows the Delaunay repair ahead of time: the
  // faces whose circumcircle holds the point are those the repair will swap
  // away, and the repair looks at every side of that region. Each side
  // waiting in `fresh` has its record being loaded; each in `awaiting` has
  // the record of the edge to the vertex beyond it being loaded. A region
  // with more sides than kMaxSides is followed only along the first ones.
  enum class Stage { idle, cell, edge, face, cavity };
  static constexpr std::size_t kMaxSides = 8;
  struct Sides {
    std::array<EdgeRef, kMaxSides> edge{};
    std::size_t count = 0;
    void add(EdgeRef e) {
      if (count < kMaxSides) edge[count++] = e;
    }
  };
  struct Scout {
    Point p;
    Stage stage = Stage::idle;
    EdgeRef e = 0;
    EdgeRef face = VertexIndex::kNone;
    unsigned steps = 0;
    Sides fresh;
    Sides awaiting;
  };

  void step(Scout& scout) const;
  // Moves each side of the region one load on; see Stage.
  void grow_cavity(Scout& scout) const;

  const std::vector<Point>& vertices_;
  const std::vector<VertexId>& order_;
  const VertexIndex& index_;
  const QuadEdgeMesh& mesh_;
  std::array<Scout, kAhead> scouts_{};
};

}  // namespace qnutil::triangulation
