// Handles as plug-ins know them from the Macintosh: a pointer to a master
// pointer to the data. The host makes its own as (block, size) records whose
// first field is the master pointer, registered in a process-wide ordered
// set. Plug-ins written for Windows also hand in global-memory handles they
// made themselves, directly or through a variable holding one; the suite
// serves those with the global-memory functions.
#include "psfilter/handle_suite.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <set>

#include "psfilter/memory_probe.h"

namespace qnutil::psfilter {
namespace {

struct HostHandle {
  char* block;  // must stay first: the handle points at it
  std::int32_t size;
};

// Unguarded like the rest of the run: one filter runs at a time.
std::set<HostHandle*>& host_handles() {
  static std::set<HostHandle*> handles;
  return handles;
}

HostHandle* host_handle(Handle handle) {
  auto* record = reinterpret_cast<HostHandle*>(handle);
  return host_handles().count(record) ? record : nullptr;
}

// A plug-in's global memory: the handle itself, or the variable it points to
// holding one (`holder`).
struct GlobalRef {
  HGLOBAL memory = nullptr;
  HGLOBAL* holder = nullptr;
};

GlobalRef global_of(Handle handle) {
  if (!handle) return {};
  if (GlobalSize(handle) > 0) return {handle, nullptr};
  if (readable(handle, sizeof(HGLOBAL))) {
    auto* holder = reinterpret_cast<HGLOBAL*>(handle);
    if (*holder && GlobalSize(*holder) > 0) return {*holder, holder};
  }
  return {};
}

Handle new_handle(std::int32_t size) noexcept {
  if (size < 0) return nullptr;
  // One byte at least, so that an empty handle still has a master pointer.
  auto* block = static_cast<char*>(std::calloc(std::max<std::int32_t>(size, 1), 1));
  auto* record = new (std::nothrow) HostHandle{block, size};
  bool registered = false;
  if (block && record) {
    try {
      registered = host_handles().insert(record).second;
    } catch (...) {
    }
  }
  if (!registered) {
    std::free(block);
    delete record;
    return nullptr;
  }
  return reinterpret_cast<Handle>(record);
}

void dispose(Handle handle) noexcept {
  if (HostHandle* record = host_handle(handle)) {
    host_handles().erase(record);
    std::free(record->block);
    delete record;
  } else if (const GlobalRef global = global_of(handle); global.memory) {
    GlobalFree(global.memory);
  }
}

std::int32_t get_size(Handle handle) noexcept {
  if (HostHandle* record = host_handle(handle)) return record->size;
  if (const GlobalRef global = global_of(handle); global.memory)
    return static_cast<std::int32_t>(GlobalSize(global.memory));
  return 0;
}

OSErr set_size(Handle handle, std::int32_t size) noexcept {
  // Refused sizes and exhausted memory are reported as memFullErr.
  if (HostHandle* record = host_handle(handle)) {
    if (size < 0) return memFullErr;
    char* block = static_cast<char*>(std::realloc(record->block, std::max<std::int32_t>(size, 1)));
    if (!block) return memFullErr;
    record->block = block;
    record->size = size;
    return noErr;
  }
  const GlobalRef global = global_of(handle);
  if (!global.memory) return nilHandleErr;
  if (size < 0) return memFullErr;
  if (global.holder) {
    HGLOBAL resized = GlobalReAlloc(global.memory, size, GMEM_MOVEABLE);
    if (!resized) return memFullErr;
    *global.holder = resized;
    return noErr;
  }
  // The plug-in's handle value cannot be updated: a fixed block may only
  // grow in place.
  HGLOBAL resized = GlobalReAlloc(global.memory, size, 0);
  if (!resized) return memFullErr;
  return resized == global.memory ? noErr : nilHandleErr;
}

Ptr lock(Handle handle, Boolean) noexcept {
  if (HostHandle* record = host_handle(handle)) return record->block;
  if (const GlobalRef global = global_of(handle); global.memory)
    return static_cast<Ptr>(GlobalLock(global.memory));
  // Some plug-ins hand in a master pointer of their own.
  if (handle && readable(handle, sizeof(Ptr)) && writable(*handle)) return *handle;
  return nullptr;
}

void unlock(Handle handle) noexcept {
  if (host_handle(handle)) return;
  if (const GlobalRef global = global_of(handle); global.memory) GlobalUnlock(global.memory);
}

void recover_space(std::int32_t) noexcept {}

// Regular handles of the host are never freed this way.
void dispose_regular(Handle handle) noexcept {
  if (host_handle(handle)) return;
  if (const GlobalRef global = global_of(handle); global.memory) GlobalFree(global.memory);
}

}  // namespace

HandleProcs make_handle_procs() {
  return {
      kHandleProcsVersion, kHandleProcsCount, new_handle, dispose, get_size, set_size, lock, unlock,
      recover_space,       dispose_regular};
}

void dispose_handle(Handle handle) { dispose(handle); }

}  // namespace qnutil::psfilter
