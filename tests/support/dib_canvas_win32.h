// Pictures in memory DCs for the GDI tests: a 32-bit DIB section selected
// into a memory DC, read and written as 0x00RRGGBB words, rows top-down.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace qnutil_test {

using Pixels = std::vector<std::uint32_t>;  // top-down rows

// Description of 32-bit top-down pixels: row 0 first in memory.
inline BITMAPINFO top_down_info(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

class DibCanvas {
 public:
  DibCanvas(int width, int height, std::uint32_t fill_word = 0) : width_(width), height_(height) {
    const BITMAPINFO info = top_down_info(width, height);
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ =
        CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_), nullptr, 0);
    old_ = SelectObject(dc_, bitmap_);
    fill(fill_word);
  }
  ~DibCanvas() {
    SelectObject(dc_, old_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  DibCanvas(const DibCanvas&) = delete;
  DibCanvas& operator=(const DibCanvas&) = delete;

  HDC dc() const { return dc_; }
  // The bitmap, taken out of the canvas's DC so that it can be selected
  // elsewhere; back in with select_back().
  HBITMAP release_bitmap() {
    SelectObject(dc_, old_);
    return bitmap_;
  }
  void select_back() { SelectObject(dc_, bitmap_); }
  std::uint32_t at(int x, int y) const {
    GdiFlush();
    return bits_[y * width_ + x] & 0x00FFFFFFu;
  }
  void set(int x, int y, std::uint32_t word) { bits_[y * width_ + x] = word; }
  void fill(std::uint32_t word) {
    GdiFlush();
    for (int i = 0; i < width_ * height_; ++i) bits_[i] = word;
  }
  void set_all(const Pixels& pixels) {
    for (int i = 0; i < width_ * height_; ++i) bits_[i] = pixels[static_cast<size_t>(i)];
  }
  int width() const { return width_; }
  int height() const { return height_; }

 private:
  int width_, height_;
  HDC dc_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_ = nullptr;
  std::uint32_t* bits_ = nullptr;
};

// A device bitmap (compatible with the screen) holding the picture.
inline HBITMAP device_bitmap(int width, int height, const Pixels& pixels) {
  DibCanvas canvas(width, height);
  canvas.set_all(pixels);
  const HDC screen = GetDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  ReleaseDC(nullptr, screen);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  BitBlt(dc, 0, 0, width, height, canvas.dc(), 0, 0, SRCCOPY);
  SelectObject(dc, old);
  DeleteDC(dc);
  return bitmap;
}

// A COLORREF (0x00BBGGRR) as the 0x00RRGGBB word a 32-bit DIB holds.
inline std::uint32_t word_of(COLORREF colour) {
  return (GetRValue(colour) << 16) | (GetGValue(colour) << 8) | GetBValue(colour);
}

}  // namespace qnutil_test
