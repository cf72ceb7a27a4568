#include "platform/large_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace qnutil::platform {
namespace {

// The kernel backs only whole, aligned 2 MB ranges with huge pages, so the
// mapping is made one huge page larger than asked for, and what lies before
// the first boundary and after the block is returned at once. What remains
// starts at the block, which lets release_large unmap it from there.
constexpr std::uintptr_t kHugePage = std::uintptr_t{2} << 20;

std::uintptr_t round_up(std::uintptr_t value, std::uintptr_t unit) {
  return (value + unit - 1) & ~(unit - 1);
}

}  // namespace

void* allocate_large(std::size_t bytes) {
  if (bytes == 0 || bytes > SIZE_MAX - 2 * kHugePage) return nullptr;
  const std::size_t mapped = bytes + kHugePage;
  void* mapping = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) return nullptr;
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto start = reinterpret_cast<std::uintptr_t>(mapping);
  const std::uintptr_t block = round_up(start, kHugePage);
  const std::uintptr_t block_end = round_up(block + bytes, page);
  if (block != start) munmap(mapping, block - start);
  if (block_end != start + mapped)
    munmap(reinterpret_cast<void*>(block_end), start + mapped - block_end);
#if defined(MADV_HUGEPAGE)
  madvise(reinterpret_cast<void*>(block), bytes,
          MADV_HUGEPAGE);  // advice: the block works without it
#endif
  return reinterpret_cast<void*>(block);
}

void release_large(void* block, std::size_t bytes) {
  if (block) munmap(block, bytes);
}

}  // namespace qnutil::platform
