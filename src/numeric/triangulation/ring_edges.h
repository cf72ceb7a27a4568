// Ring edges in a region mesh: each becomes an edge of the mesh (split at
// the vertices that lie on it), marked as constrained, and the mesh around
// it is made Delaunay again.
#pragma once

#include <deque>
#include <utility>
#include <vector>

#include "numeric/triangulation/region_mesh.h"

namespace qnutil::triangulation::region {

class RingEdgeInserter {
 public:
  explicit RingEdgeInserter(RegionMesh& mesh) : mesh_(mesh) {}
  // Makes a-b an edge and toggles its odd-crossing flag. Returns false,
  // leaving the mesh valid but the edge incomplete, when a-b crosses a
  // ring edge inserted before.
  bool insert(VertexId a, VertexId b);

 private:
  struct Exit;
  Exit leave(VertexId a, VertexId b) const;
  void clear_crossings(VertexId a, VertexId b);

  RegionMesh& mesh_;
  std::deque<std::pair<VertexId, VertexId>> crossing_;
  std::vector<std::pair<VertexId, VertexId>> fresh_;
};

}  // namespace qnutil::triangulation::region
