#include "psfilter/memory_probe.h"

#include <windows.h>

#include <cstdint>

namespace qnutil::psfilter {
namespace {

constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                            PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr DWORD kWritable =
    PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;

// Committed memory whose protection grants `access`, covering `size` bytes
// from `address` within one region.
bool accessible(const void* address, std::size_t size, DWORD access) {
  if (!address) return false;
  MEMORY_BASIC_INFORMATION region{};
  if (VirtualQuery(address, &region, sizeof region) != sizeof region) return false;
  if (region.State != MEM_COMMIT || (region.Protect & (PAGE_GUARD | PAGE_NOACCESS))) return false;
  if (!(region.Protect & access)) return false;
  const auto begin = reinterpret_cast<std::uintptr_t>(address);
  const auto regionEnd = reinterpret_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize;
  return size <= regionEnd - begin;
}

}  // namespace

bool readable(const void* address, std::size_t size) {
  return accessible(address, size, kReadable);
}

bool writable(const void* address) { return accessible(address, 1, kWritable); }

}  // namespace qnutil::psfilter
