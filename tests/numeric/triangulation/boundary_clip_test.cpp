// Faces that touch the enclosing triangle are clipped against the boundary:
// for a convex outline every clipped piece lies inside it, and every emitted
// triangle turns counter-clockwise (or is flat).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "triangulation_checks.h"

namespace triangulate_test {
namespace {

constexpr double kPi = 3.14159265358979323846;

std::vector<Vertex> regular_polygon(int corners, float radius, float angle) {
  std::vector<Vertex> outline;
  for (int i = 0; i < corners; ++i)
    outline.push_back({static_cast<float>(radius * std::cos(angle + 2 * kPi * i / corners)),
                       static_cast<float>(radius * std::sin(angle + 2 * kPi * i / corners))});
  return outline;
}

// The corners of the enclosing triangle built from the outline's box.
std::vector<Vertex> enclosing_corners(const std::vector<Vertex>& outline) {
  double min_x = 10000, min_y = 10000, max_x = -10000, max_y = -10000;
  for (const Vertex& v : outline) {
    min_x = std::min<double>(min_x, v.x), max_x = std::max<double>(max_x, v.x);
    min_y = std::min<double>(min_y, v.y), max_y = std::max<double>(max_y, v.y);
  }
  const double w = max_x - min_x, h = max_y - min_y;
  return {{float(min_x - w), float(min_y - h)},
          {float(min_x + 4 * w), float(min_y - h)},
          {float(min_x - w), float(min_y + 5 * h)}};
}

// The outline followed by `count` random points well inside it.
std::vector<Vertex> outline_with_inner_points(const std::vector<Vertex>& outline, int count) {
  std::vector<Vertex> points = outline;
  std::mt19937 generator(99);
  std::uniform_real_distribution<float> coordinate(-100.0f, 100.0f);
  while (static_cast<int>(points.size()) < static_cast<int>(outline.size()) + count) {
    const Vertex candidate{coordinate(generator), coordinate(generator)};
    const Vertex shrunk{candidate.x / 0.8f, candidate.y / 0.8f};  // keeps a margin to the outline
    if (inside_or_on_polygon(shrunk, outline, 0.0)) points.push_back(candidate);
  }
  return points;
}

struct OutlineCase {
  const char* name;
  std::vector<Vertex> outline;
  int inner_points;
};

class ConvexOutline : public ::testing::TestWithParam<OutlineCase> {};

TEST_P(ConvexOutline, ClippedPiecesStayInsideAndTurnCounterClockwise) {
  const OutlineCase& c = GetParam();
  const std::vector<Vertex> points = outline_with_inner_points(c.outline, c.inner_points);
  const std::vector<Vertex> corners = enclosing_corners(c.outline);
  const Result result = triangulate(points, static_cast<unsigned int>(c.outline.size()));
  ASSERT_EQ(result.status, 1);
  ASSERT_FALSE(result.triangles.empty());
  long double covered = 0;
  for (const Triangle& t : result.triangles) {
    const long double doubled = doubled_area(t.corner[0], t.corner[1], t.corner[2]);
    EXPECT_GE(doubled, 0) << "clockwise triangle";
    // A face with two corners of the enclosing triangle keeps one of them.
    bool keeps_corner = false;
    for (const Vertex& v : t.corner)
      for (const Vertex& corner : corners)
        keeps_corner = keeps_corner || (v.x == corner.x && v.y == corner.y);
    if (keeps_corner) continue;
    for (const Vertex& v : t.corner)
      EXPECT_TRUE(inside_or_on_polygon(v, c.outline, 1e-3)) << v.x << ", " << v.y;
    covered += doubled / 2;
  }
  // Inner faces and clipped pieces together cover the outline.
  EXPECT_GE(static_cast<double>(covered), 0.999 * static_cast<double>(hull_area(c.outline)));
}

INSTANTIATE_TEST_SUITE_P(
    Outlines, ConvexOutline,
    ::testing::Values(OutlineCase{"Square", {{-80, -80}, {80, -80}, {80, 80}, {-80, 80}}, 200},
                      OutlineCase{"Triangle", {{-90, -60}, {90, -70}, {0, 95}}, 150},
                      OutlineCase{"Circle48", regular_polygon(48, 90, 0.1f), 300},
                      OutlineCase{"Hexagon", regular_polygon(6, 95, 0.0f), 100},
                      OutlineCase{
                          "TiltedRectangle", {{-60, -90}, {90, -30}, {60, 90}, {-90, 30}}, 120},
                      OutlineCase{"OutlineOnly", regular_polygon(32, 80, 0.3f), 0}),
    [](const auto& info) { return std::string(info.param.name); });

// Faces between the points are emitted without looking at the boundary:
// the notch of an L-shaped outline is filled too.
TEST(ConcaveOutline, InnerFacesInTheNotchAreEmitted) {
  const std::vector<Vertex> outline = {{0, 0}, {10, 0}, {10, 4}, {4, 4}, {4, 10}, {0, 10}};
  const Result result = triangulate(outline, static_cast<unsigned int>(outline.size()));
  ASSERT_EQ(result.status, 1);
  bool in_notch = false;
  for (const Triangle& t : result.triangles) {
    const Vertex centroid{(t.corner[0].x + t.corner[1].x + t.corner[2].x) / 3,
                          (t.corner[0].y + t.corner[1].y + t.corner[2].y) / 3};
    in_notch =
        in_notch || (centroid.x > 4 && centroid.y > 4 && centroid.x < 10 && centroid.y < 10 &&
                     doubled_area(t.corner[0], t.corner[1], t.corner[2]) > 0);
  }
  EXPECT_TRUE(in_notch);
}

}  // namespace
}  // namespace triangulate_test
