// Helpers of the triangulation tests: one call of the export turned into a
// vector, and independent geometric checks of the triangles it returns.
#pragma once

#include <cstddef>
#include <vector>

namespace triangulate_test {

struct Vertex {
  float x;
  float y;
};

struct Triangle {
  Vertex corner[3];
};

struct Result {
  int status = -1;
  std::vector<Triangle> triangles;
};

// Triangulieren over `points` with the first `boundary` of them as the
// boundary; the array is released again with FreeTriangs (which must clear it).
Result triangulate(const std::vector<Vertex>& points, unsigned int boundary);

// Twice the signed area of a triangle, in long double.
long double doubled_area(const Vertex& a, const Vertex& b, const Vertex& c);

// True when d lies inside the circumcircle of counter-clockwise a, b, c by
// more than the rounding error of the evaluation.
bool clearly_inside_circumcircle(const Vertex& a, const Vertex& b, const Vertex& c, const Vertex& d);

// Indices of triangles whose circumcircle clearly contains one of `points`.
std::vector<std::size_t> non_delaunay_triangles(const std::vector<Triangle>& triangles,
                                                const std::vector<Vertex>& points);

// Number of directed edges that occur more than once (overlapping triangles
// share a directed edge, or fold over one another).
std::size_t repeated_directed_edges(const std::vector<Triangle>& triangles);

// Area of the convex hull of the points.
long double hull_area(std::vector<Vertex> points);

bool inside_or_on_polygon(const Vertex& p, const std::vector<Vertex>& polygon, double tolerance);

}  // namespace triangulate_test
