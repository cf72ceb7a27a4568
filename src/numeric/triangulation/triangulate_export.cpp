// The exported pair: the run's triangles handed over in one array that only
// FreeTriangs releases.
#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include "frame/export_guard.h"
#include "numeric/triangulation/triangulation_run.h"
#include "qnutil/triangulate.h"

extern "C" QNUTIL_API int QNUTIL_CALL Triangulieren(int n, unsigned int nb, const float* points, void** triangles,
                                                    unsigned int* count) {
  if (triangles == nullptr || count == nullptr) return 0;
  *triangles = nullptr;
  *count = 0;
  return qnutil::frame::guard_export(0, [&] {
    const std::vector<float> corners = qnutil::triangulation::triangulate(n, nb, points);
    const std::size_t triangle_count = corners.size() / 6;
    if (triangle_count > std::numeric_limits<unsigned int>::max()) return 0;
    // An empty result is still an array of its own (new[] of zero elements).
    float* array = new (std::nothrow) float[triangle_count * 6];
    if (array == nullptr) return 0;
    std::copy(corners.begin(), corners.end(), array);
    *triangles = array;
    *count = static_cast<unsigned int>(triangle_count);
    return 1;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL FreeTriangs(void** triangles) {
  if (triangles != nullptr) {
    delete[] static_cast<float*>(*triangles);
    *triangles = nullptr;
  }
  return 1;
}
