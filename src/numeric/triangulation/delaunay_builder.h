// Incremental Delaunay triangulation in a quad-edge subdivision, in the form
// published by Lischinski: the subdivision starts as one enclosing triangle
// and each inserted point is connected to the corners of the face that holds
// it, after which edges that fail the in-circle test are swapped. Points are
// inserted in the caller's order; every decision uses the exact predicates.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "numeric/triangulation/predicates.h"
#include "numeric/triangulation/quad_edge.h"
#include "numeric/triangulation/vertex_index.h"

namespace qnutil::triangulation {

class DelaunayBuilder {
 public:
  // `vertices` holds every point that may be inserted, each a pair of
  // floats; it must outlive the builder. `corners` are the enclosing
  // triangle's, counter-clockwise. The index covers the box of the points to
  // be inserted.
  DelaunayBuilder(const std::vector<Point>& vertices, const std::array<Point, 3>& corners,
                  const Point& points_min, const Point& points_max, std::size_t expected_points);

  // Inserts the vertices in the given order, each of which must lie strictly
  // inside the enclosing triangle, while loading what the next few
  // insertions will look at.
  void insert_all(const std::vector<VertexId>& order);

  const QuadEdgeMesh& mesh() const { return mesh_; }

 private:
  // Leaves v out when it duplicates a vertex already present (both
  // coordinates within 1e-5 of a corner of the face that holds it).
  // `near`, if not VertexIndex::kNone, is an edge likely near v.
  void insert(VertexId v, EdgeRef near);
  EdgeRef walk_start(const Point& p, EdgeRef near) const;
  // An edge whose closed left face contains p.
  EdgeRef locate(const Point& p, EdgeRef start);
  EdgeRef locate_by_scan(const Point& p) const;
  bool left_face_contains(EdgeRef e, const Point& p) const;
  bool is_near_duplicate(const Point& p, EdgeRef face) const;
  void restore_delaunay(VertexId v, EdgeRef e);
  int orientation_of(EdgeRef e, const Point& p) const {
    return orientation(mesh_.origin_point(e), mesh_.destination_point(e), p);
  }
  bool random_bit();

  const std::vector<Point>& vertices_;
  QuadEdgeMesh mesh_;
  EdgeRef starting_edge_;  // the edge made by the last insertion
  VertexIndex index_;
  std::uint32_t random_state_ = 0x9E3779B9u;
};

}  // namespace qnutil::triangulation
