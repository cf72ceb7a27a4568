// The exported region functions: the inside triangles as index triples,
// and refinement's added points, in arrays from new[] that only
// FreeRegionTriangles and FreeRegionPoints release.
#include <algorithm>
#include <memory>
#include <new>

#include "frame/export_guard.h"
#include "numeric/triangulation/region_triangulation.h"
#include "qnutil/triangulate.h"

namespace {

template <class T, class Source>
T* new_array_copy(const Source& source) {
  auto* array = new T[source.size()];
  std::copy(source.begin(), source.end(), array);
  return array;
}

template <class T>
void release_array(T** array) {
  if (array == nullptr) return;
  delete[](*array);
  *array = nullptr;
}

// `added_points` and `added_count` are required where refinement may add
// points, and null otherwise.
int triangulate(const qnutil::triangulation::region::RegionInput& input, bool refining,
                unsigned int** triangles, unsigned int* triangle_count, double** added_points,
                unsigned int* added_count, unsigned int* crossing_point) {
  if (triangles != nullptr) *triangles = nullptr;
  if (triangle_count != nullptr) *triangle_count = 0;
  if (added_points != nullptr) *added_points = nullptr;
  if (added_count != nullptr) *added_count = 0;
  if (triangles == nullptr || triangle_count == nullptr ||
      (refining && (added_points == nullptr || added_count == nullptr)) ||
      (input.coordinates == nullptr && input.point_count > 0) ||
      (input.ring_sizes == nullptr && input.ring_count > 0))
    return QNUTIL_REGION_BAD_ARGUMENT;
  return qnutil::frame::guard_export(QNUTIL_REGION_NO_MEMORY, [&] {
    const auto result = qnutil::triangulation::region::triangulate_region(input);
    if (result.code == QNUTIL_REGION_CROSSING && crossing_point != nullptr)
      *crossing_point = result.crossing_point;
    if (result.code != QNUTIL_REGION_OK) return result.code;
    std::unique_ptr<unsigned int[]> corners(new_array_copy<unsigned int>(result.triangles));
    if (added_points != nullptr) {
      *added_points = new_array_copy<double>(result.added);
      *added_count = static_cast<unsigned int>(result.added.size() / 2);
    }
    *triangles = corners.release();
    *triangle_count = static_cast<unsigned int>(result.triangles.size() / 3);
    return QNUTIL_REGION_OK;
  });
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL
TriangulateRegion(const double* points, unsigned int point_count, const unsigned int* ring_sizes,
                  unsigned int ring_count, unsigned int** triangles, unsigned int* triangle_count,
                  unsigned int* crossing_point) {
  return triangulate({points, point_count, ring_sizes, ring_count, 0, 0}, false, triangles,
                     triangle_count, nullptr, nullptr, crossing_point);
}

extern "C" QNUTIL_API int QNUTIL_CALL TriangulateRegionRefined(
    const double* points, unsigned int point_count, const unsigned int* ring_sizes,
    unsigned int ring_count, double min_angle, unsigned int max_added_points,
    unsigned int** triangles, unsigned int* triangle_count, double** added_points,
    unsigned int* added_count, unsigned int* crossing_point) {
  return triangulate({points, point_count, ring_sizes, ring_count, min_angle, max_added_points},
                     true, triangles, triangle_count, added_points, added_count, crossing_point);
}

extern "C" QNUTIL_API void QNUTIL_CALL FreeRegionTriangles(unsigned int** triangles) {
  release_array(triangles);
}

extern "C" QNUTIL_API void QNUTIL_CALL FreeRegionPoints(double** points) { release_array(points); }
