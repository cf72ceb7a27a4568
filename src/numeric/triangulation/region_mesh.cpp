#include "numeric/triangulation/region_mesh.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "numeric/triangulation/box.h"

namespace qnutil::triangulation::region {
namespace {

// Corners of a triangle that strictly contains every point: the points'
// box is held well inside, and the margin is large enough against the
// coordinates' own size that rounding cannot move a corner across a point.
void append_enclosing_corners(std::vector<Point>& points) {
  const Box box = bounding_box(points.data(), points.size());
  const double magnitude = std::max(
      {std::fabs(box.min_x), std::fabs(box.max_x), std::fabs(box.min_y), std::fabs(box.max_y)});
  const double margin = std::max({box.width(), box.height(), 1e-3 * magnitude, 1e-20});
  const double cx = 0.5 * (box.min_x + box.max_x), cy = 0.5 * (box.min_y + box.max_y);
  points.push_back({cx - 40 * margin, cy - 30 * margin});
  points.push_back({cx + 40 * margin, cy - 30 * margin});
  points.push_back({cx, cy + 40 * margin});
}

}  // namespace

RegionMesh::RegionMesh(std::vector<Point> points)
    : points_(std::move(points)), input_count_(static_cast<VertexId>(points_.size())) {
  const VertexId n = input_count_;
  append_enclosing_corners(points_);
  // Every insertion adds two triangles to the enclosing one.
  triangles_.reserve(2 * std::size_t{n} + 1);
  flags_.reserve(4 * triangles_.capacity());
  triangles_.push_back({{n, n + 1, n + 2}, {kNoSide, kNoSide, kNoSide}});
  flags_.assign(4, 0);
  triangle_at_.assign(points_.size(), 0);
  last_inserted_ = n;
}

TriangleId RegionMesh::new_triangle() {
  triangles_.emplace_back();
  flags_.insert(flags_.end(), 4, 0);
  return static_cast<TriangleId>(triangles_.size() - 1);
}

void RegionMesh::link(Side a, Side b) {
  triangles_[triangle_of(a)].across[index_of(a)] = b;
  triangles_[triangle_of(b)].across[index_of(b)] = a;
}

void RegionMesh::set_outer(Side s, Side outer, std::uint8_t flags) {
  triangles_[triangle_of(s)].across[index_of(s)] = outer;
  if (outer != kNoSide) triangles_[triangle_of(outer)].across[index_of(outer)] = s;
  flags_[s] = flags;
}

// The visibility walk: step across any side that has p strictly beyond it.
// On a Delaunay mesh it cannot cycle, whichever such side it takes.
RegionMesh::WalkEnd RegionMesh::walk(const Point& p, TriangleId start, bool ring_edges_stop,
                                     std::size_t most_steps) const {
  TriangleId t = start;
  unsigned entered = 3;  // the side just crossed, which p is known to be inside of
  for (std::size_t step = 0; step <= most_steps; ++step) {
    const MeshTriangle& triangle = triangles_[t];
    Side beyond = kNoSide;
    for (unsigned i = 0; i < 3 && beyond == kNoSide; ++i)
      if (i != entered && orientation(points_[triangle.corner[next_index(i)]],
                                      points_[triangle.corner[previous_index(i)]], p) < 0)
        beyond = side_of(t, i);
    if (beyond == kNoSide) return {t, kNoSide};
    if (ring_edges_stop && (flags_[beyond] & kConstrained) != 0) return {t, beyond};
    t = triangle_of(across(beyond));
    entered = index_of(across(beyond));
  }
  return {kNoTriangle, kNoSide};
}

void RegionMesh::fan(VertexId v, const VertexId* ring, const Side* outer,
                     const std::uint8_t* outer_flags, const std::uint8_t* spoke_flags,
                     const bool* slot_inside, const TriangleId* slots, unsigned count) {
  for (unsigned k = 0; k < count; ++k) {
    const unsigned following = k + 1 == count ? 0 : k + 1;
    triangles_[slots[k]].corner[0] = v;
    triangles_[slots[k]].corner[1] = ring[k];
    triangles_[slots[k]].corner[2] = ring[following];
    set_outer(side_of(slots[k], 0), outer[k], outer_flags[k]);
    triangle_at_[ring[k]] = slots[k];
  }
  for (unsigned k = 0; k < count; ++k) {
    const unsigned following = k + 1 == count ? 0 : k + 1;
    const Side spoke = side_of(slots[k], 1), back = side_of(slots[following], 2);
    link(spoke, back);
    flags_[spoke] = flags_[back] = spoke_flags[k];
  }
  triangle_at_[v] = slots[0];
  pending_.clear();
  for (unsigned k = 0; k < count; ++k) {
    set_inside(slots[k], slot_inside[k]);
    pending_.push_back(side_of(slots[k], 0));
  }
  legalize_around(pending_);
  last_inserted_ = v;
}

VertexId RegionMesh::insert(VertexId v) {
  const std::size_t unbounded = triangles_.size();  // no cycle on a Delaunay mesh
  return insert_into(v, walk(points_[v], triangle_at_[last_inserted_], false, unbounded).triangle);
}

VertexId RegionMesh::add_point(const Point& p) {
  points_.push_back(p);
  triangle_at_.push_back(0);
  return static_cast<VertexId>(points_.size() - 1);
}

void RegionMesh::drop_last_point() {
  points_.pop_back();
  triangle_at_.pop_back();
}

VertexId RegionMesh::insert_into(VertexId v, TriangleId t) {
  const Point p = points_[v];
  const MeshTriangle& triangle = triangles_[t];
  for (const VertexId c : triangle.corner)
    if (points_[c].x == p.x && points_[c].y == p.y) return c;
  for (unsigned i = 0; i < 3; ++i)
    if (orientation(points_[triangle.corner[next_index(i)]],
                    points_[triangle.corner[previous_index(i)]], p) == 0) {
      split_side(v, side_of(t, i));
      return v;
    }
  split_triangle(v, t);
  return v;
}

// Inside: three triangles, each over one side (the side facing the corner
// two steps on runs from corner k to corner k + 1).
void RegionMesh::split_triangle(VertexId v, TriangleId t) {
  const MeshTriangle triangle = triangles_[t];
  const bool region = inside(t);
  VertexId ring[3];
  Side outer[3];
  std::uint8_t outer_flags[3];
  const std::uint8_t spokes[3] = {0, 0, 0};
  for (unsigned k = 0; k < 3; ++k) {
    ring[k] = triangle.corner[k];
    outer[k] = triangle.across[previous_index(k)];
    outer_flags[k] = flags_[side_of(t, previous_index(k))];
  }
  const bool slot_inside[3] = {region, region, region};
  const TriangleId slots[3] = {t, new_triangle(), new_triangle()};
  fan(v, ring, outer, outer_flags, spokes, slot_inside, slots, 3);
}

// Four triangles around v over the quadrilateral a, x, q, y of the side's
// two triangles; the halves of the split edge keep its flags, and each new
// triangle stays on its side of the edge.
void RegionMesh::split_side(VertexId v, Side s) {
  const TriangleId t = triangle_of(s);
  const unsigned i = index_of(s);
  const MeshTriangle triangle = triangles_[t];
  const Side o = triangle.across[i];
  const TriangleId u = triangle_of(o);
  const unsigned j = index_of(o);
  const MeshTriangle other = triangles_[u];
  const bool near_inside = inside(t), far_inside = inside(u);
  const VertexId ring[4] = {triangle.corner[i], triangle.corner[next_index(i)], other.corner[j],
                            triangle.corner[previous_index(i)]};
  const Side outer[4] = {triangle.across[previous_index(i)], other.across[next_index(j)],
                         other.across[previous_index(j)], triangle.across[next_index(i)]};
  const std::uint8_t outer_flags[4] = {
      flags_[side_of(t, previous_index(i))], flags_[side_of(u, next_index(j))],
      flags_[side_of(u, previous_index(j))], flags_[side_of(t, next_index(i))]};
  const std::uint8_t spokes[4] = {flags_[s], 0, flags_[s], 0};
  const bool slot_inside[4] = {near_inside, far_inside, far_inside, near_inside};
  const TriangleId slots[4] = {t, u, new_triangle(), new_triangle()};
  fan(v, ring, outer, outer_flags, spokes, slot_inside, slots, 4);
}

bool RegionMesh::flippable(Side s) const {
  const Side o = across(s);
  if (o == kNoSide || (flags_[s] & kConstrained) != 0) return false;
  const MeshTriangle& triangle = triangles_[triangle_of(s)];
  return in_circle(points_[triangle.corner[0]], points_[triangle.corner[1]],
                   points_[triangle.corner[2]], points_[corner(o)]) > 0;
}

// Lawson's flips around a new vertex, which is corner 0 of every pending
// side's triangle and stays so through the flips.
void RegionMesh::legalize_around(std::vector<Side>& pending) {
  while (!pending.empty()) {
    const Side s = pending.back();
    pending.pop_back();
    if (flippable(s)) {
      const TriangleId t = triangle_of(s), u = triangle_of(across(s));
      flip(s);
      pending.push_back(side_of(t, 0));
      pending.push_back(side_of(u, 0));
    }
  }
}

void RegionMesh::flip(Side s) {
  const TriangleId t = triangle_of(s);
  const unsigned i = index_of(s);
  const Side o = across(s);
  const TriangleId u = triangle_of(o);
  const unsigned j = index_of(o);
  MeshTriangle& near = triangles_[t];
  MeshTriangle& far = triangles_[u];
  const VertexId p = near.corner[i], x = near.corner[next_index(i)],
                 y = near.corner[previous_index(i)], q = far.corner[j];
  // The quadrilateral's outer sides: y to p, p to x, x to q, q to y.
  const Side yp = near.across[next_index(i)], px = near.across[previous_index(i)];
  const Side xq = far.across[next_index(j)], qy = far.across[previous_index(j)];
  const std::uint8_t yp_flags = flags_[side_of(t, next_index(i))];
  const std::uint8_t px_flags = flags_[side_of(t, previous_index(i))];
  const std::uint8_t xq_flags = flags_[side_of(u, next_index(j))];
  const std::uint8_t qy_flags = flags_[side_of(u, previous_index(j))];
  near.corner[0] = p, near.corner[1] = x, near.corner[2] = q;
  far.corner[0] = p, far.corner[1] = q, far.corner[2] = y;
  set_outer(side_of(t, 0), xq, xq_flags);
  set_outer(side_of(t, 2), px, px_flags);
  set_outer(side_of(u, 0), qy, qy_flags);
  set_outer(side_of(u, 1), yp, yp_flags);
  link(side_of(t, 1), side_of(u, 2));
  flags_[side_of(t, 1)] = flags_[side_of(u, 2)] = 0;
  triangle_at_[p] = triangle_at_[x] = t;
  triangle_at_[q] = triangle_at_[y] = u;
}

Side RegionMesh::find_side(VertexId from, VertexId to) const {
  // Around an enclosing corner the triangles do not close into a ring:
  // look from the other end then.
  if (is_enclosing(from)) {
    if (is_enclosing(to)) return kNoSide;
    const Side reverse = find_side(to, from);
    return reverse == kNoSide ? kNoSide : across(reverse);
  }
  Side found = kNoSide;
  for_each_around(from, [&](TriangleId t, unsigned k) {
    if (triangles_[t].corner[next_index(k)] != to) return false;
    found = side_of(t, previous_index(k));
    return true;
  });
  return found;
}

void RegionMesh::mark(Side s, std::uint8_t set, std::uint8_t toggle) {
  flags_[s] = static_cast<std::uint8_t>((flags_[s] | set) ^ toggle);
  const Side o = across(s);
  if (o != kNoSide) flags_[o] = static_cast<std::uint8_t>((flags_[o] | set) ^ toggle);
}

// Edges are kept by their ends: sides go stale as flips rewrite triangles.
void RegionMesh::restore_delaunay(std::vector<std::pair<VertexId, VertexId>>& edges) {
  while (!edges.empty()) {
    const auto [x, y] = edges.back();
    edges.pop_back();
    const Side s = find_side(x, y);
    if (s != kNoSide && flippable(s)) {
      const VertexId p = corner(s), q = corner(across(s));
      flip(s);
      edges.emplace_back(p, x);
      edges.emplace_back(x, q);
      edges.emplace_back(q, y);
      edges.emplace_back(y, p);
    }
  }
}

}  // namespace qnutil::triangulation::region
