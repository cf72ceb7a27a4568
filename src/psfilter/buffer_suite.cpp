// Buffers are plain heap blocks; the buffer ID is the block itself.
#include "psfilter/buffer_suite.h"

#include <cstdlib>

namespace qnutil::psfilter {
namespace {

// Answers noErr even when the heap is exhausted (the ID is then null), as
// plug-ins written against this host expect.
OSErr allocate(std::int32_t size, BufferID* bufferID) noexcept {
  if (!bufferID) return noErr;
  *bufferID = size < 0 ? nullptr : static_cast<BufferID>(std::malloc(size > 0 ? size : 1));
  return noErr;
}

Ptr lock(BufferID bufferID, Boolean) noexcept { return reinterpret_cast<Ptr>(bufferID); }

void unlock(BufferID) noexcept {}

void release(BufferID bufferID) noexcept { std::free(bufferID); }

std::int32_t space() noexcept { return kHostSpace; }

}  // namespace

BufferProcs make_buffer_procs() {
  return {kBufferProcsVersion, kBufferProcsCount, allocate, lock, unlock, release, space};
}

}  // namespace qnutil::psfilter
