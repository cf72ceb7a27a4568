/*
 * Polygon triangulation.
 *  - Triangulieren: the Delaunay triangulation of a point set whose first
 *    points form a closed boundary polygon, with the faces outside the
 *    points' hull clipped against the boundary.
 *  - TriangulateRegion: the constrained Delaunay triangulation of a region
 *    bounded by rings (outlines and openings), which keeps every ring edge
 *    and emits only the triangles inside the region.
 */
#ifndef QNUTIL_TRIANGULATE_H
#define QNUTIL_TRIANGULATE_H

#include "common.h"

QNUTIL_EXTERN_C_BEGIN

/** Triangulates n points given as n (x, y) float pairs in `points`; the first
 *  nb of them, in order, are the boundary polygon (closed from the last back
 *  to the first). Points are inserted in the given order; a point within
 *  1e-5 of an inserted one in both coordinates is skipped, and points that
 *  are not finite or lie outside the enclosing triangle built from the
 *  boundary's box are left out. Triangles that touch none of the enclosing
 *  triangle's corners are emitted as they are (also outside a concave
 *  boundary); the others are clipped against the boundary edges and emitted
 *  counter-clockwise.
 *  On return *triangles is a new array of *count triangles, 24 bytes each
 *  (x0, y0, x1, y1, x2, y2 as floats), to be released with FreeTriangs;
 *  n < 3 or nb > n give an empty array. Returns 1 when an array was produced
 *  (also an empty one), 0 when it could not be allocated or an output
 *  pointer is null (then *triangles is null and *count 0 where given). */
QNUTIL_API int QNUTIL_CALL Triangulieren(int n, unsigned int nb, const float* points,
                                         void** triangles, unsigned int* count);

/** Releases an array made by Triangulieren and sets *triangles to null;
 *  a null pointer (or *triangles null) is accepted. Returns 1. */
QNUTIL_API int QNUTIL_CALL FreeTriangs(void** triangles);

/* Results of TriangulateRegion. */
#define QNUTIL_REGION_OK 0
#define QNUTIL_REGION_BAD_ARGUMENT \
  (-1) /* null pointer, sizes that do not add up, too many points, min_angle out of range */
#define QNUTIL_REGION_BAD_COORDINATE (-2) /* a coordinate not finite or beyond +-1e30 */
#define QNUTIL_REGION_CROSSING (-3)       /* two ring edges cross: no region is defined */
#define QNUTIL_REGION_NO_MEMORY (-4)

/* The largest min_angle of TriangulateRegionRefined, in degrees: beyond
 * about this bound refinement no longer ends before its cap. */
#define QNUTIL_REGION_LARGEST_MIN_ANGLE 34

/** Triangulates the region bounded by rings of points, keeping every ring
 *  edge, and returns the triangles inside it.
 *
 *  `points` holds point_count (x, y) pairs of doubles. The first
 *  ring_sizes[0] points are ring 0, the next ring_sizes[1] ring 1, and so
 *  on; each ring is closed from its last point back to its first (a closing
 *  point that repeats the first one is accepted). The points after the
 *  rings are interior points: extra vertices of the mesh, e.g. a grid for a
 *  finer one; those outside the region are simply not used.
 *
 *  The region is what the rings enclose by the even-odd rule: a point
 *  belongs to it when a ray from it crosses the rings an odd number of
 *  times. An outline with openings is thus just its rings, in any order
 *  and orientation; an opening may touch the outline or another opening at
 *  vertices or along edges, and an edge drawn twice (a zero-area spike, or
 *  a wall shared by two rings) bounds nothing.
 *
 *  Every ring edge is an edge of the result, split where other points lie
 *  on it; points that repeat an earlier point exactly are merged into it.
 *  Elsewhere the mesh is Delaunay: no vertex visible from a triangle lies
 *  inside its circumcircle. All decisions use exact predicates, so
 *  near-duplicate and collinear points are handled as they are. Coordinates
 *  of a magnitude below 1e-30 are taken as 0 (they are far below any
 *  drawing's precision and would underflow the exact arithmetic).
 *  Two ring edges that cross at a point interior to both have no defined
 *  region between them: the call fails with QNUTIL_REGION_CROSSING, and
 *  *crossing_point (when given) names the ring point whose edge to the
 *  next point of its ring runs into the crossing.
 *
 *  On QNUTIL_REGION_OK, *triangles is a new array of *triangle_count
 *  triangles, three indices into `points` each, counter-clockwise (a merged
 *  point is named by its first occurrence); release it with
 *  FreeRegionTriangles. An empty region gives an empty array. On failure
 *  *triangles is null and *triangle_count 0. At most 100,000,000 points
 *  (with those refinement adds). */
QNUTIL_API int QNUTIL_CALL TriangulateRegion(const double* points, unsigned int point_count,
                                             const unsigned int* ring_sizes,
                                             unsigned int ring_count, unsigned int** triangles,
                                             unsigned int* triangle_count,
                                             unsigned int* crossing_point);

/** TriangulateRegion with quality refinement: while a triangle inside the
 *  region has an angle below min_angle (degrees, 0 to QNUTIL_REGION_LARGEST_MIN_ANGLE), its
 *  circumcentre is added, and a ring edge that a vertex sees under more
 *  than a right angle is split at its midpoint, until no such triangle is
 *  left or max_added_points have been added. Angles between ring edges
 *  below the bound cannot be mended: near them triangles are refined only
 *  down to sides of a millionth of the points' extent. A
 *  split ring edge stays straight up to the rounding of its midpoint,
 *  which is used only where it keeps every triangle counter-clockwise.
 *
 *  Triangle indices below point_count name the caller's points; index
 *  point_count + k names added point k, whose (x, y) are
 *  (*added_points)[2k], [2k + 1]. On QNUTIL_REGION_OK *added_points is a
 *  new array of *added_count points (also when empty), to be released with
 *  FreeRegionPoints. min_angle 0 or max_added_points 0 give the result of
 *  TriangulateRegion. Other results as TriangulateRegion; both output
 *  pairs are null / 0 on failure. */
QNUTIL_API int QNUTIL_CALL TriangulateRegionRefined(
    const double* points, unsigned int point_count, const unsigned int* ring_sizes,
    unsigned int ring_count, double min_angle, unsigned int max_added_points,
    unsigned int** triangles, unsigned int* triangle_count, double** added_points,
    unsigned int* added_count, unsigned int* crossing_point);

/** Releases an array made by TriangulateRegion or TriangulateRegionRefined
 *  and sets *triangles to null; a null pointer (or *triangles null) is
 *  accepted. */
QNUTIL_API void QNUTIL_CALL FreeRegionTriangles(unsigned int** triangles);

/** Releases the added points of TriangulateRegionRefined and sets *points
 *  to null; a null pointer (or *points null) is accepted. */
QNUTIL_API void QNUTIL_CALL FreeRegionPoints(double** points);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_TRIANGULATE_H */
