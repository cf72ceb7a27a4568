#include "platform/large_memory.h"

#include <windows.h>

namespace qnutil::platform {

void* allocate_large(std::size_t bytes) {
  if (bytes == 0) return nullptr;
  return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void release_large(void* block, std::size_t) {
  if (block) VirtualFree(block, 0, MEM_RELEASE);
}

}  // namespace qnutil::platform
