// The exported pair for regions: the inside triangles as index triples in
// an array from new[], which only FreeRegionTriangles releases.
#include <algorithm>
#include <new>

#include "frame/export_guard.h"
#include "numeric/triangulation/region_triangulation.h"
#include "qnutil/triangulate.h"

extern "C" QNUTIL_API int QNUTIL_CALL TriangulateRegion(const double* points,
                                                        unsigned int point_count,
                                                        const unsigned int* ring_sizes,
                                                        unsigned int ring_count,
                                                        unsigned int** triangles,
                                                        unsigned int* triangle_count,
                                                        unsigned int* crossing_point) {
  if (triangles != nullptr) *triangles = nullptr;
  if (triangle_count != nullptr) *triangle_count = 0;
  if (triangles == nullptr || triangle_count == nullptr || (points == nullptr && point_count > 0) ||
      (ring_sizes == nullptr && ring_count > 0))
    return QNUTIL_REGION_BAD_ARGUMENT;
  return qnutil::frame::guard_export(QNUTIL_REGION_NO_MEMORY, [&] {
    const auto result =
        qnutil::triangulation::region::triangulate_region({points, point_count, ring_sizes, ring_count});
    if (result.code == QNUTIL_REGION_CROSSING && crossing_point != nullptr)
      *crossing_point = result.crossing_point;
    if (result.code != QNUTIL_REGION_OK) return result.code;
    auto* array = new unsigned int[result.triangles.size()];
    std::copy(result.triangles.begin(), result.triangles.end(), array);
    *triangles = array;
    *triangle_count = static_cast<unsigned int>(result.triangles.size() / 3);
    return QNUTIL_REGION_OK;
  });
}

extern "C" QNUTIL_API void QNUTIL_CALL FreeRegionTriangles(unsigned int** triangles) {
  if (triangles == nullptr) return;
  delete[] *triangles;
  *triangles = nullptr;
}
