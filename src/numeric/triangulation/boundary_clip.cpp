#include "numeric/triangulation/boundary_clip.h"

#include <cfloat>
#include <cmath>
#include <limits>

namespace qnutil::triangulation {
namespace {

constexpr double kTolerance = 1e-5;

// Intersection of segments p->q and r->s. The segments cross when their lines
// do (parallel lines never count, not even overlapping ones) at parameters
// within [-1e-5, 1 + 1e-5] along both.
bool intersect(const Point& p, const Point& q, const Point& r, const Point& s, Point& cut) {
  const double dx1 = q.x - p.x, dy1 = q.y - p.y;
  const double dx2 = s.x - r.x, dy2 = s.y - r.y;
  const double denominator = dx1 * dy2 - dy1 * dx2;
  if (denominator == 0.0) return false;
  const double ex = r.x - p.x, ey = r.y - p.y;
  const double t = (ex * dy2 - ey * dx2) / denominator;
  const double u = (ex * dy1 - ey * dx1) / denominator;
  if (!(t >= -kTolerance && t <= 1.0 + kTolerance && u >= -kTolerance && u <= 1.0 + kTolerance))
    return false;
  cut = {p.x + t * dx1, p.y + t * dy1};
  return true;
}

// cut projects onto segment p->q: (cut - p).(q - p) within [-1e-5, L + 1e-5]
// for the squared length L > 0.
bool projects_onto(const Point& cut, const Point& p, const Point& q) {
  const double dx = q.x - p.x, dy = q.y - p.y;
  const double length = dx * dx + dy * dy;
  if (!(length > 0.0)) return false;
  const double along = (cut.x - p.x) * dx + (cut.y - p.y) * dy;
  return along >= -kTolerance && along <= length + kTolerance;
}

}  // namespace

float to_float(double value) {
  if (value > FLT_MAX) return std::numeric_limits<float>::infinity();
  if (value < -FLT_MAX) return -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

void append_counter_clockwise(const Point& a, const Point& b, const Point& c, TriangleArray& out) {
  // Orientation is decided on the coordinates as stored, so that rounding to
  // float can never leave a clockwise triangle behind.
  const float corner[6] = {to_float(a.x), to_float(a.y), to_float(b.x),
                           to_float(b.y), to_float(c.x), to_float(c.y)};
  bool finite = true;
  for (float value : corner) finite = finite && std::isfinite(value);
  const bool counter_clockwise =
      finite &&
      orientation({corner[0], corner[1]}, {corner[2], corner[3]}, {corner[4], corner[5]}) > 0;
  if (counter_clockwise) {
    out.append(corner);
  } else {
    out.append({corner[4], corner[5], corner[2], corner[3], corner[0], corner[1]});
  }
}

bool BoundaryClip::strictly_inside_box(const Point& p) const {
  return box_.min_x < p.x && p.x < box_.max_x && box_.min_y < p.y && p.y < box_.max_y;
}

// One-sided on purpose: a vertex right of the box counts only when it is
// also below it. The corners of the enclosing triangle all pass.
bool BoundaryClip::recognised_as_outside(const Point& p) const {
  return p.x < box_.min_x || (p.x > box_.max_x && p.y < box_.min_y) || p.y > box_.max_y;
}

void BoundaryClip::clip(const Point (&corner)[3], TriangleArray& out) const {
  int inside = -1, outside = -1;
  for (int i = 0; i < 3; ++i) {
    if (inside < 0 && strictly_inside_box(corner[i])) inside = i;
    if (outside < 0 && recognised_as_outside(corner[i])) outside = i;
  }
  if (inside < 0 || outside < 0) return;
  for (std::size_t i = 0; i < boundary_size_; ++i) {
    const Point& p = boundary_[i];
    const Point& q = boundary_[i + 1 < boundary_size_ ? i + 1 : 0];
    Point cut;
    if (!intersect(p, q, corner[inside], corner[outside], cut)) continue;
    if (!projects_onto(cut, p, q) || !projects_onto(cut, corner[inside], corner[outside])) continue;
    Point clipped[3] = {corner[0], corner[1], corner[2]};
    clipped[outside] = cut;
    append_counter_clockwise(clipped[0], clipped[1], clipped[2], out);
  }
}

}  // namespace qnutil::triangulation
