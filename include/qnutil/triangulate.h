/*
 * Polygon triangulation: the Delaunay triangulation of a point set whose
 * first points form a closed boundary polygon, with the faces outside the
 * points' hull clipped against the boundary.
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

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_TRIANGULATE_H */
