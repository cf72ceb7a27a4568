// The emitted triangles, six floats each, grown like a vector but held in
// an array from new[]: the export hands the array over as it is (FreeTriangs
// deletes it with delete[]) instead of copying a result that runs to tens of
// megabytes.
#pragma once

#include <cstddef>
#include <memory>

namespace qnutil::triangulation {

class TriangleArray {
 public:
  void reserve(std::size_t triangles);
  void append(const float (&corners)[6]);
  std::size_t size() const { return size_; }
  // The array, size() triangles long, for the caller to delete[]; null when
  // nothing was ever reserved or appended. Leaves this array empty.
  std::unique_ptr<float[]> release();

 private:
  std::unique_ptr<float[]> floats_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace qnutil::triangulation
