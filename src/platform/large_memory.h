// Memory for large working sets that are read at random places. Where the
// system hands out large pages without special rights, such a block is
// backed by them: a random access then needs one address-translation entry
// per 2 MB instead of one per 4 KB, and on a virtual machine a missed entry
// costs about as much as the memory access itself.
#pragma once

#include <cstddef>

namespace qnutil::platform {

// A zero-filled block of at least `bytes` bytes, aligned to 64 bytes;
// nullptr when the system has no memory left. Linux: an anonymous mapping
// marked for transparent huge pages. Windows: VirtualAlloc with ordinary
// pages (large pages there need the lock-memory privilege, which programs
// of the host do not hold).
void* allocate_large(std::size_t bytes);
// Returns a block from allocate_large; `bytes` is the size asked for.
void release_large(void* block, std::size_t bytes);

}  // namespace qnutil::platform
