#include "numeric/triangulation/region_refinement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <utility>
#include <vector>

#include "numeric/triangulation/box.h"
#include "qnutil/numeric.h"

namespace qnutil::triangulation::region {
namespace {

// A walk towards a circumcentre that takes longer than this has lost its
// way in a region of skinny triangles: that triangle is left as it is.
constexpr std::size_t kLongestWalk = 100000;
// Near a small angle between ring edges refinement would go on shrinking
// triangles towards the corner without end: sides shorter than this share
// of the plan's extent are neither refined nor split.
constexpr double kSmallestFeature = 1e-6;

double input_extent(const RegionMesh& mesh) {
  const Box box = bounding_box(&mesh.point(0), mesh.input_count());
  return std::max(box.width(), box.height());
}

// Whether p lies strictly inside the circle with diameter x-y (it sees
// the segment under more than a right angle).
bool inside_diametral_circle(const Point& p, const Point& x, const Point& y) {
  return (x.x - p.x) * (y.x - p.x) + (x.y - p.y) * (y.y - p.y) < 0;
}

using Edge = std::pair<VertexId, VertexId>;

class Refinement {
 public:
  Refinement(RegionMesh& mesh, const RefinementLimits& limits)
      : mesh_(mesh),
        smallest_sine_(sin_deg(limits.min_angle_degrees)),
        shortest_mended_(kSmallestFeature * input_extent(mesh)),
        room_(limits.max_added) {}

  void run() {
    for (TriangleId t = 0; t < mesh_.triangles().size(); ++t)
      if (mesh_.inside(t)) {
        for (unsigned i = 0; i < 3; ++i) queue_if_ring_edge(side_of(t, i));
        queue_if_bad(t);
      }
    split_encroached();
    while (!bad_.empty() && room_ > 0) {
      const auto corners = bad_.front();
      bad_.pop_front();
      // Earlier insertions may have replaced it.
      const Side s = mesh_.find_side(corners[0], corners[1]);
      if (s != kNoSide && mesh_.corner(s) == corners[2]) mend(triangle_of(s));
    }
  }

 private:
  // Whether the triangle's smallest angle is below the bound: its sine is
  // twice the area over the product of the two longer sides (compared in
  // squares).
  bool is_bad(const VertexId (&corners)[3]) const {
    const Point &a = mesh_.point(corners[0]), &b = mesh_.point(corners[1]),
                &c = mesh_.point(corners[2]);
    std::array<double, 3> lengths = {squared_distance(b, c), squared_distance(c, a),
                                     squared_distance(a, b)};
    std::sort(lengths.begin(), lengths.end());
    if (lengths[0] < shortest_mended_ * shortest_mended_) return false;
    const double twice_area = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    return twice_area * twice_area < smallest_sine_ * smallest_sine_ * lengths[1] * lengths[2];
  }

  void queue_if_bad(TriangleId t) {
    const auto& corners = mesh_.triangles()[t].corner;
    if (mesh_.inside(t) && is_bad(corners)) bad_.push_back({corners[0], corners[1], corners[2]});
  }

  // A new vertex's triangles, to be checked for quality and its ring edges
  // for encroachment.
  void queue_around(VertexId v) {
    mesh_.for_each_around(v, [&](TriangleId t, unsigned k) {
      queue_if_bad(t);
      queue_if_ring_edge(side_of(t, k));
      return false;
    });
  }

  void queue_if_ring_edge(Side s) {
    if ((mesh_.flags(s) & kConstrained) != 0)
      segments_.emplace_back(mesh_.origin(s), mesh_.destination(s));
  }

  // A vertex of an inside triangle at the edge sees it under more than a
  // right angle: it lies inside the edge's diametral circle.
  bool encroached(Side s) const {
    for (const Side half : {s, mesh_.across(s)}) {
      if (half == kNoSide || !mesh_.inside(triangle_of(half))) continue;
      if (inside_diametral_circle(mesh_.point(mesh_.corner(half)), mesh_.point(mesh_.origin(half)),
                                  mesh_.point(mesh_.destination(half))))
        return true;
    }
    return false;
  }

  void split_encroached() {
    while (!segments_.empty() && room_ > 0) {
      const auto [x, y] = segments_.back();
      segments_.pop_back();
      const Side s = mesh_.find_side(x, y);
      if (s == kNoSide || (mesh_.flags(s) & kConstrained) == 0 || !encroached(s)) continue;
      split_segment(s);
    }
  }

  // Splits a ring edge at its midpoint. The midpoint is rounded; it is
  // taken only when the four triangles around it still turn
  // counter-clockwise, so the edge bends by a rounding error at most.
  bool split_segment(Side s) {
    const VertexId x = mesh_.origin(s), y = mesh_.destination(s);
    const Point &px = mesh_.point(x), &py = mesh_.point(y);
    if (squared_distance(px, py) < 4 * shortest_mended_ * shortest_mended_) return false;
    const Point middle{0.5 * (px.x + py.x), 0.5 * (px.y + py.y)};
    const Point& near_apex = mesh_.point(mesh_.corner(s));
    const Point& far_apex = mesh_.point(mesh_.corner(mesh_.across(s)));
    if (orientation(middle, near_apex, px) <= 0 || orientation(middle, px, far_apex) <= 0 ||
        orientation(middle, far_apex, py) <= 0 || orientation(middle, py, near_apex) <= 0)
      return false;
    const VertexId m = mesh_.add_point(middle);
    mesh_.split_side(m, s);
    --room_;
    segments_.emplace_back(x, m);
    segments_.emplace_back(m, y);
    queue_around(m);
    return true;
  }

  // Inserts the circumcentre of bad triangle t, or splits the ring edges
  // that lie between t and it or that it would encroach on; in that case t
  // is queued again, as the splits may leave it as it was.
  void mend(TriangleId t) {
    const MeshTriangle& triangle = mesh_.triangles()[t];
    const std::array<VertexId, 3> corners = {triangle.corner[0], triangle.corner[1],
                                             triangle.corner[2]};
    const Point &a = mesh_.point(triangle.corner[0]), &b = mesh_.point(triangle.corner[1]),
                &c = mesh_.point(triangle.corner[2]);
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double d = 2 * (bx * cy - by * cx);
    const double b_lift = bx * bx + by * by, c_lift = cx * cx + cy * cy;
    const Point centre{a.x + (cy * b_lift - by * c_lift) / d,
                       a.y + (bx * c_lift - cx * b_lift) / d};
    if (!std::isfinite(centre.x) || !std::isfinite(centre.y)) return;

    // Walk towards the centre; a ring edge on the way is split instead.
    const RegionMesh::WalkEnd end = mesh_.walk(centre, t, true, kLongestWalk);
    if (end.blocked != kNoSide) {
      if (split_segment(end.blocked)) bad_.push_back(corners);
      return;
    }
    const TriangleId at = end.triangle;
    if (at == kNoTriangle) return;
    if (!mesh_.inside(at)) return;
    // A centre that would encroach on ring edges is not inserted: the
    // edges are split instead (else it would sit close to an edge and
    // breed ever smaller triangles there).
    const std::vector<Edge> encroached_edges = edges_encroached_by(centre, at);
    if (!encroached_edges.empty()) {
      bool split = false;
      for (const auto& [x, y] : encroached_edges) {
        if (room_ == 0) break;
        const Side s = mesh_.find_side(x, y);
        if (s != kNoSide) split = split_segment(s) || split;
      }
      split_encroached();
      if (split) bad_.push_back(corners);
      return;
    }
    const VertexId v = mesh_.add_point(centre);
    if (mesh_.insert_into(v, at) != v) {
      mesh_.drop_last_point();
      return;
    }
    --room_;
    queue_around(v);
    split_encroached();
  }

  // The ring edges on the border of the triangles whose circumcircles hold
  // p (the triangles p's insertion would replace), starting from the one
  // that holds p, that have p inside their diametral circle.
  std::vector<Edge> edges_encroached_by(const Point& p, TriangleId start) {
    std::vector<Edge> found;
    cavity_.assign(1, start);
    visited_.assign(1, start);
    while (!cavity_.empty()) {
      const TriangleId t = cavity_.back();
      cavity_.pop_back();
      for (unsigned i = 0; i < 3; ++i) {
        const Side s = side_of(t, i);
        if ((mesh_.flags(s) & kConstrained) != 0) {
          if (inside_diametral_circle(p, mesh_.point(mesh_.origin(s)),
                                      mesh_.point(mesh_.destination(s))))
            found.emplace_back(mesh_.origin(s), mesh_.destination(s));
          continue;
        }
        const Side beyond = mesh_.across(s);
        if (beyond == kNoSide) continue;
        const TriangleId u = triangle_of(beyond);
        if (std::find(visited_.begin(), visited_.end(), u) != visited_.end()) continue;
        const MeshTriangle& other = mesh_.triangles()[u];
        if (in_circle(mesh_.point(other.corner[0]), mesh_.point(other.corner[1]),
                      mesh_.point(other.corner[2]), p) > 0) {
          visited_.push_back(u);
          cavity_.push_back(u);
        }
      }
    }
    return found;
  }

  RegionMesh& mesh_;
  const double smallest_sine_;
  const double shortest_mended_;
  std::uint32_t room_;
  std::vector<Edge> segments_;
  std::deque<std::array<VertexId, 3>> bad_;
  std::vector<TriangleId> cavity_, visited_;
};

}  // namespace

void refine(RegionMesh& mesh, const RefinementLimits& limits) {
  if (limits.min_angle_degrees <= 0 || limits.max_added == 0) return;
  Refinement(mesh, limits).run();
}

}  // namespace qnutil::triangulation::region
