// Starting a load early: walks that know where they go next hide the latency
// of a mesh far larger than the caches this way. A no-op where the compiler
// offers no hint.
#pragma once

namespace qnutil::triangulation {

inline void prefetch(const void* address) {
#if defined(__GNUC__)
  __builtin_prefetch(address);
#else
  (void)address;
#endif
}

}  // namespace qnutil::triangulation
