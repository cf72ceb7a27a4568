// A running GDI+ session, a white DIB section to draw on, and pixel access
// to images, for the tests of the GDI+ family under Wine.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "support/dib_canvas_win32.h"
#include "qnutil/qnutil_win32.h"

namespace qnutil_test {

class GdiPlusTest : public ::testing::Test {
 protected:
  static constexpr int kSize = 120;

  void SetUp() override {
    gdiPlusInit();
    fill(0x00FFFFFF);
  }

  HDC dc() const { return canvas_.dc(); }
  void fill(std::uint32_t rgb) { canvas_.fill(rgb); }
  // 0x00RRGGBB of the DC pixel.
  std::uint32_t at(int x, int y) const { return canvas_.at(x, y); }
  bool dark(int x, int y) const {
    const std::uint32_t p = at(x, y);
    return ((p >> 16) & 255) + ((p >> 8) & 255) + (p & 255) < 3 * 128;
  }
  // Bounding box of dark pixels: {left, top, right, bottom} inclusive.
  RECT dark_box() const {
    RECT box{kSize, kSize, -1, -1};
    for (int y = 0; y < kSize; ++y)
      for (int x = 0; x < kSize; ++x)
        if (dark(x, y))
          box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y),
                 std::max<LONG>(box.right, x), std::max<LONG>(box.bottom, y)};
    return box;
  }

  static Gdiplus::Bitmap* bitmap(void* image) { return static_cast<Gdiplus::Bitmap*>(image); }
  static std::uint32_t argb_at(void* image, int x, int y) {
    Gdiplus::Color colour;
    bitmap(image)->GetPixel(x, y, &colour);
    return colour.GetValue();
  }

 private:
  qnutil_test::DibCanvas canvas_{kSize, kSize};
};

inline bool near_colour(std::uint32_t a, std::uint32_t b, int tolerance) {
  for (int shift = 0; shift < 32; shift += 8)
    if (std::abs(int((a >> shift) & 255) - int((b >> shift) & 255)) > tolerance) return false;
  return true;
}

}  // namespace qnutil_test
