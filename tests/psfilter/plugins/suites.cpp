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

// Writes `text` into the handle, resizes it to `size` and reads the text back.
bool keeps_text_over_resize(const HandleProcs& procs, Handle handle, const char* text,
                            std::int32_t size) {
  Ptr bytes = procs.lockProc(handle, false);
  if (!bytes) return false;
  std::memcpy(bytes, text, std::strlen(text));
  procs.unlockProc(handle);
  if (procs.setSizeProc(handle, size) != noErr || procs.getSizeProc(handle) != size) return false;
  bytes = procs.lockProc(handle, false);
  const bool kept = bytes && std::memcmp(bytes, text, std::strlen(text)) == 0;
  procs.unlockProc(handle);
  return kept;
}

bool host_handle(const HandleProcs& procs) {
  Handle handle = procs.newProc(16);
  if (!handle || procs.getSizeProc(handle) != 16) return false;
  const Ptr bytes = procs.lockProc(handle, false);
  const bool direct = bytes && bytes == *handle;
  procs.unlockProc(handle);
  const bool kept = direct && keeps_text_over_resize(procs, handle, "0123456789abcdef", 4096);
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
  auto handle = reinterpret_cast<Handle>(GlobalAlloc(GMEM_MOVEABLE, 32));
  const bool kept =
      procs.getSizeProc(handle) == 32 && keeps_text_over_resize(procs, handle, "global", 64);
  procs.disposeProc(handle);
  return kept;
}

bool pointer_to_own_global_handle(const HandleProcs& procs) {
  HGLOBAL holder = GlobalAlloc(GMEM_MOVEABLE, 8);
  auto handle = reinterpret_cast<Handle>(&holder);
  if (procs.getSizeProc(handle) != 8) return false;
  if (procs.setSizeProc(handle, 100000) != noErr || procs.getSizeProc(handle) != 100000)
    return false;
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
  return plugin::first_failed(checks, 1000);
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
        for (int plane = 0; plane < 4; ++plane)
          out[y * record->outRowBytes + x * 4 + plane] = std::uint8_t(plane * 10 + 10);
    plugin::clear_tiles(*record);
  }
}
