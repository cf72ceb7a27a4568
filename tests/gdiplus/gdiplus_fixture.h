// A running GDI+ session, a 32-bit top-down DIB section to draw on, and
// pixel access to images, for the tests of the GDI+ family under Wine.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>

#include <cstdint>
#include <cstdlib>

#include "qnutil/qnutil_win32.h"

namespace qnutil_test {

class GdiPlusTest : public ::testing::Test {
 protected:
  static constexpr int kSize = 120;

  void SetUp() override {
    gdiPlusInit();
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSize;
    info.bmiHeader.biHeight = -kSize;  // top-down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    dc_ = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    dib_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(bits);
    previous_ = SelectObject(dc_, dib_);
    fill(0x00FFFFFF);
  }
  void TearDown() override {
    SelectObject(dc_, previous_);
    DeleteObject(dib_);
    DeleteDC(dc_);
  }

  HDC dc() const { return dc_; }
  void fill(std::uint32_t rgb) {
    GdiFlush();
    for (int i = 0; i < kSize * kSize; ++i) pixels_[i] = rgb;
  }
  // 0x00RRGGBB of the DC pixel.
  std::uint32_t at(int x, int y) const {
    GdiFlush();
    return pixels_[y * kSize + x] & 0xFFFFFF;
  }
  bool dark(int x, int y) const {
    const std::uint32_t p = at(x, y);
    return ((p >> 16) & 255) + ((p >> 8) & 255) + (p & 255) < 3 * 128;
  }
  // Bounding box of dark pixels: {left, top, right, bottom} inclusive.
  RECT dark_box() const {
    RECT box{kSize, kSize, -1, -1};
    for (int y = 0; y < kSize; ++y)
      for (int x = 0; x < kSize; ++x)
        if (dark(x, y)) {
          box.left = std::min<LONG>(box.left, x), box.top = std::min<LONG>(box.top, y);
          box.right = std::max<LONG>(box.right, x), box.bottom = std::max<LONG>(box.bottom, y);
        }
    return box;
  }

  static Gdiplus::Bitmap* bitmap(void* image) { return static_cast<Gdiplus::Bitmap*>(image); }
  static std::uint32_t argb_at(void* image, int x, int y) {
    Gdiplus::Color colour;
    bitmap(image)->GetPixel(x, y, &colour);
    return colour.GetValue();
  }

 private:
  HDC dc_ = nullptr;
  HBITMAP dib_ = nullptr;
  HGDIOBJ previous_ = nullptr;
  std::uint32_t* pixels_ = nullptr;
};

inline bool near_colour(std::uint32_t a, std::uint32_t b, int tolerance) {
  for (int shift = 0; shift < 32; shift += 8) {
    if (std::abs(static_cast<int>((a >> shift) & 255) - static_cast<int>((b >> shift) & 255)) > tolerance)
      return false;
  }
  return true;
}

}  // namespace qnutil_test
