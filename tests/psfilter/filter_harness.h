// Running test plug-ins from the tests: where they are (next to the test
// program), images with a known pattern, a loaded filter that frees itself,
// and one run's outcome.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "qnutil/qnutil_win32.h"
#include "support/own_path.h"

namespace qnutil_test {

inline std::string plugin_path(const std::string& name) {
  return sibling(("psfilter-plugins\\" + name + ".8bf").c_str());
}

// Rows top-down, blue, green, red, alpha, with padding after each row.
struct Image {
  int32_t width = 0;
  int32_t height = 0;
  int32_t rowBytes = 0;
  std::vector<uint8_t> bytes;

  uint8_t* pixel(int x, int y) { return bytes.data() + y * rowBytes + x * 4; }
};

// Every byte differs from its neighbours, padding included.
inline Image pattern_image(int32_t width, int32_t height, int32_t padding = 8) {
  Image image{width, height, width * 4 + padding, {}};
  image.bytes.resize(size_t(image.rowBytes) * height);
  for (size_t i = 0; i < image.bytes.size(); ++i) image.bytes[i] = uint8_t(i * 7 + i / 13);
  return image;
}

class LoadedFilter {
 public:
  explicit LoadedFilter(const std::string& module) {
    AVGetPSFilterAndInfo(plugin_path(module).c_str(), nullptr, nullptr, &filter_, nullptr);
  }
  ~LoadedFilter() { AVFreeGotPSFilter(&filter_); }
  LoadedFilter(const LoadedFilter&) = delete;
  LoadedFilter& operator=(const LoadedFilter&) = delete;

  PSFilter_* get() const { return filter_; }

 private:
  PSFilter_* filter_ = nullptr;
};

struct RunOutcome {
  bool ok = false;
  int32_t status = 0;
  Image image;        // the result image (empty when none was made)
  std::string trace;  // selectors the plug-in saw, in order
};

inline RunOutcome run(PSFilter_* filter, const Image& source, bool repeatLast = false,
                      AVPSFilterProgressProc progress = nullptr, int32_t userValue = 0) {
  SetEnvironmentVariableA("QNUTIL_PLUGIN_TRACE", nullptr);
  RunOutcome outcome;
  unsigned char* result = nullptr;
  outcome.status = 12345;
  outcome.ok =
      AVApplyPSFilter(filter, repeatLast, progress, userValue, source.bytes.data(), source.width,
                      source.height, source.rowBytes, &result, &outcome.status);
  if (result) {
    outcome.image = source;
    std::memcpy(outcome.image.bytes.data(), result, source.bytes.size());
    AVFreeGotPSFilterImage(&result);
  }
  char trace[256] = {};
  GetEnvironmentVariableA("QNUTIL_PLUGIN_TRACE", trace, sizeof trace);
  outcome.trace = trace;
  return outcome;
}

// The source with `change(byte)` applied to the host bytes of plug-in planes
// lo..hi (plane 0 red = byte 2, 1 green = byte 1, 2 blue = byte 0, 3 alpha)
// in the top `rows` rows (-1: all).
template <class Change>
Image with_planes_changed(const Image& source, int lo, int hi, Change change, int rows = -1) {
  static const int kPlaneByte[] = {2, 1, 0, 3};
  Image image = source;
  for (int y = 0; y < (rows < 0 ? source.height : rows); ++y)
    for (int x = 0; x < source.width; ++x)
      for (int plane = lo; plane <= hi; ++plane) {
        uint8_t& byte = image.pixel(x, y)[kPlaneByte[plane]];
        byte = change(byte);
      }
  return image;
}

// "" when equal, else where the first byte differs.
inline std::string first_difference(const Image& actual, const Image& expected) {
  if (actual.bytes.size() != expected.bytes.size()) return "sizes differ";
  for (size_t i = 0; i < actual.bytes.size(); ++i)
    if (actual.bytes[i] != expected.bytes[i])
      return "row " + std::to_string(i / expected.rowBytes) + " byte " +
             std::to_string(i % expected.rowBytes) + ": " + std::to_string(actual.bytes[i]) +
             " instead of " + std::to_string(expected.bytes[i]);
  return "";
}

inline uint8_t inverted(uint8_t value) { return uint8_t(255 - value); }

}  // namespace qnutil_test
