// Exercises the buffer and handle suites in its start step, with handles
// the host makes and global-memory handles of its own, and fails with
// -(1000 + number of the first check that does not hold). Then it fills the
// whole image, all four planes, with the plane numbers times ten.
#include <cstring>

#include "plugin_support.h"

namespace {

bool buffer_suite(const BufferProcs& procs) {
  BufferID buffer = nullptr;
  if (procs.allocateProc(1000, &buffer) != noErr || !buffer) return false;
  Ptr bytes = procs.lockProc(buffer, true);
  const bool same = bytes == reinterpret_cast<Ptr>(buffer);
  if (same) std::memset(bytes, 0x5A, 1000);
  procs.unlockProc(buffer);
  procs.freeProc(buffer);
  return same && procs.spaceProc() == 100000000;
}

bool host_handle(const HandleProcs& procs) {
  Handle handle = procs.newProc(16);
  if (!handle || procs.getSizeProc(handle) != 16) return false;
  Ptr bytes = procs.lockProc(handle, false);
  if (!bytes || bytes != *handle) return false;
  std::memcpy(bytes, "0123456789abcdef", 16);
  procs.unlockProc(handle);
  if (procs.setSizeProc(handle, 4096) != noErr || procs.getSizeProc(handle) != 4096) return false;
  bytes = procs.lockProc(handle, false);
  const bool kept = std::memcmp(bytes, "0123456789abcdef", 16) == 0;
  procs.unlockProc(handle);
  // Regular handles of the host survive disposeRegularHandleProc.
  procs.disposeRegularHandleProc(handle);
  const bool survived = procs.getSizeProc(handle) == 4096;
  procs.disposeProc(handle);
  return kept && survived;
}

bool empty_and_refused_handles(const HandleProcs& procs) {
  Handle empty = procs.newProc(0);
  const bool emptyOk = empty && *empty && procs.getSizeProc(empty) == 0;
  if (empty) procs.disposeProc(empty);
  return emptyOk && procs.newProc(-1) == nullptr;
}

bool own_global_handle(const HandleProcs& procs) {
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 32);
  auto handle = reinterpret_cast<Handle>(memory);
  if (procs.getSizeProc(handle) != 32) return false;
  Ptr bytes = procs.lockProc(handle, false);
  if (!bytes) return false;
  std::memcpy(bytes, "global", 6);
  procs.unlockProc(handle);
  if (procs.setSizeProc(handle, 64) != noErr || procs.getSizeProc(handle) != 64) return false;
  bytes = procs.lockProc(handle, false);
  const bool kept = bytes && std::memcmp(bytes, "global", 6) == 0;
  procs.unlockProc(handle);
  procs.disposeProc(handle);
  return kept;
}

bool pointer_to_own_global_handle(const HandleProcs& procs) {
  HGLOBAL holder = GlobalAlloc(GMEM_MOVEABLE, 8);
  auto handle = reinterpret_cast<Handle>(&holder);
  if (procs.getSizeProc(handle) != 8) return false;
  if (procs.setSizeProc(handle, 100000) != noErr || procs.getSizeProc(handle) != 100000) return false;
  Ptr bytes = procs.lockProc(handle, false);
  const bool locked = bytes != nullptr;
  if (locked) bytes[99999] = 1;
  procs.unlockProc(handle);
  procs.disposeRegularHandleProc(handle);
  return locked;
}

bool own_master_pointer(const HandleProcs& procs) {
  static char block[16];
  char* master = block;
  auto handle = reinterpret_cast<Handle>(&master);
  return procs.lockProc(handle, false) == block && procs.getSizeProc(handle) == 0 &&
         procs.setSizeProc(handle, 32) == nilHandleErr;
}

std::int16_t run_checks(const FilterRecord& record) {
  const bool checks[] = {
      buffer_suite(*record.bufferProcs),
      host_handle(*record.handleProcs),
      empty_and_refused_handles(*record.handleProcs),
      own_global_handle(*record.handleProcs),
      pointer_to_own_global_handle(*record.handleProcs),
      own_master_pointer(*record.handleProcs),
  };
  for (std::int16_t i = 0; i < std::int16_t(sizeof checks); ++i)
    if (!checks[i]) return std::int16_t(-1000 - i);
  return noErr;
}

}  // namespace

QNUTIL_PLUGIN_ENTRY {
  if (selector == filterSelectorStart) {
    *result = run_checks(*record);
    record->inRect = Rect{};
    plugin::set_rect(record->outRect, 0, 0, record->imageSize.v, record->imageSize.h);
    record->outLoPlane = 0;
    record->outHiPlane = 3;
  } else if (selector == filterSelectorContinue) {
    auto* out = static_cast<std::uint8_t*>(record->outData);
    for (int y = 0; y < plugin::height(record->outRect); ++y)
      for (int x = 0; x < plugin::width(record->outRect); ++x)
        for (int plane = 0; plane < 4; ++plane) out[y * record->outRowBytes + x * 4 + plane] = std::uint8_t(plane * 10 + 10);
    plugin::clear_tiles(*record);
  }
}
