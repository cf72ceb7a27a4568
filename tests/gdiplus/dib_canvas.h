// A memory device context drawing into a 32-bit top-down DIB section whose
// pixels (blue, green, red, unused) the tests read directly.
#pragma once

#include <windows.h>

#include <cstdint>

namespace qnutil_test {

struct DibCanvas {
  HDC dc = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ previous = nullptr;
  std::uint32_t* pixels = nullptr;

  DibCanvas(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    dc = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels = static_cast<std::uint32_t*>(bits);
    previous = SelectObject(dc, bitmap);
  }
  ~DibCanvas() {
    SelectObject(dc, previous);
    DeleteObject(bitmap);
    DeleteDC(dc);
  }
  DibCanvas(const DibCanvas&) = delete;
  DibCanvas& operator=(const DibCanvas&) = delete;
};

}  // namespace qnutil_test
