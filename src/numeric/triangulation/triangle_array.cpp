#include "numeric/triangulation/triangle_array.h"

#include <algorithm>
#include <utility>

namespace qnutil::triangulation {

void TriangleArray::reserve(std::size_t triangles) {
  if (triangles <= capacity_) return;
  // Not value-initialised: pages are only touched as triangles arrive.
  std::unique_ptr<float[]> grown(new float[6 * triangles]);
  std::copy(floats_.get(), floats_.get() + 6 * size_, grown.get());
  floats_ = std::move(grown);
  capacity_ = triangles;
}

void TriangleArray::append(const float (&corners)[6]) {
  if (size_ == capacity_) reserve(std::max<std::size_t>(16, 2 * capacity_));
  std::copy(corners, corners + 6, floats_.get() + 6 * size_);
  ++size_;
}

std::unique_ptr<float[]> TriangleArray::release() {
  size_ = capacity_ = 0;
  return std::move(floats_);
}

}  // namespace qnutil::triangulation
