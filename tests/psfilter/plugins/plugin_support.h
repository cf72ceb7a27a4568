// Shared by the test plug-ins: the entry point's declaration, a trace of the
// selectors the host called, settings the tests pass in through
// environment variables, and tile helpers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "psfilter/filter_record.h"

using namespace qnutil::psfilter;

// Each plug-in defines its steps as QNUTIL_PLUGIN_ENTRY { ... }: the entry
// point has traced the selector and set the result to noErr before.
#define QNUTIL_PLUGIN_ENTRY                                                                       \
  void filter_step([[maybe_unused]] std::int16_t selector, [[maybe_unused]] FilterRecord* record, \
                   [[maybe_unused]] std::int16_t* result)

QNUTIL_PLUGIN_ENTRY;

namespace plugin {

inline std::string env(const char* name) {
  char value[256] = {};
  const DWORD length = GetEnvironmentVariableA(name, value, sizeof value);
  return length > 0 && length < sizeof value ? std::string(value, length) : std::string();
}

inline int env_int(const char* name, int fallback) {
  const std::string value = env(name);
  return value.empty() ? fallback : std::atoi(value.c_str());
}

// Appends the selector's digit to QNUTIL_PLUGIN_TRACE, where the tests read
// the order of the host's calls.
inline void trace(std::int16_t selector) {
  const std::string text = env("QNUTIL_PLUGIN_TRACE") + char('0' + selector);
  SetEnvironmentVariableA("QNUTIL_PLUGIN_TRACE", text.c_str());
}

// noErr when every check holds, else -(base + number of the first that does not).
template <std::size_t count>
std::int16_t first_failed(const bool (&checks)[count], int base) {
  for (std::size_t i = 0; i < count; ++i)
    if (!checks[i]) return std::int16_t(-base - int(i));
  return noErr;
}

inline void set_rect(Rect& rect, int top, int left, int bottom, int right) {
  rect = Rect{std::int16_t(top), std::int16_t(left), std::int16_t(bottom), std::int16_t(right)};
}

inline void clear_tiles(FilterRecord& record) {
  record.inRect = Rect{};
  record.outRect = Rect{};
  record.maskRect = Rect{};
}

inline int width(const Rect& rect) { return rect.right - rect.left; }
inline int height(const Rect& rect) { return rect.bottom - rect.top; }

// Calls change(inByte) -> outByte for every plane byte of the current tiles,
// which cover the same pixels and planes.
template <class Change>
void map_tile(FilterRecord& record, Change change) {
  const int planes = record.outHiPlane - record.outLoPlane + 1;
  const auto* in = static_cast<const std::uint8_t*>(record.inData);
  auto* out = static_cast<std::uint8_t*>(record.outData);
  for (int y = 0; y < height(record.outRect); ++y)
    for (int i = 0; i < width(record.outRect) * planes; ++i)
      out[y * record.outRowBytes + i] = change(in[y * record.inRowBytes + i]);
}

}  // namespace plugin

extern "C" __declspec(dllexport) void PluginMain(std::int16_t selector, FilterRecord* record,
                                                 std::intptr_t*, std::int16_t* result) {
  plugin::trace(selector);
  *result = noErr;
  filter_step(selector, record, result);
}
