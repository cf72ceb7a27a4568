// The exported pair: the run's triangles handed over in the array they were
// written to, which only FreeTriangs releases.
#include <cstddef>
#include <limits>
#include <memory>
#include <new>

#include "frame/export_guard.h"
#include "numeric/triangulation/triangulation_run.h"
#include "qnutil/triangulate.h"

extern "C" QNUTIL_API int QNUTIL_CALL Triangulieren(int n, unsigned int nb, const float* points,
                                                    void** triangles, unsigned int* count) {
  if (triangles == nullptr || count == nullptr) return 0;
  *triangles = nullptr;
  *count = 0;
  return qnutil::frame::guard_export(0, [&] {
    qnutil::triangulation::TriangleArray result = qnutil::triangulation::triangulate(n, nb, points);
    const std::size_t triangle_count = result.size();
    if (triangle_count > std::numeric_limits<unsigned int>::max()) return 0;
    std::unique_ptr<float[]> array = result.release();
    // An empty result is still an array of its own (new[] of zero elements).
    if (array == nullptr) array.reset(new (std::nothrow) float[0]);
    if (array == nullptr) return 0;
    *triangles = array.release();
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
