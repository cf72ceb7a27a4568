// The pixels go through a temporary top-down DIB section. As the host has
// always drawn them, rows are taken from the top of the pixel map rather
// than from the rectangle's top, RGB maps also ignore the rectangle's left
// edge, and the grey palette leaves its last entry black.
#include "psfilter/display_pixels.h"

#include <windows.h>

#include <cstring>

namespace qnutil::psfilter {
namespace {

constexpr int kPaletteSize = 256;
constexpr int kGreyEntriesWritten = 255;

struct DibInfo {
  BITMAPINFOHEADER header;
  RGBQUAD palette[kPaletteSize];
};

int bits_per_pixel(std::int32_t imageMode) {
  if (imageMode == plugInModeGrayScale) return 8;
  if (imageMode == plugInModeRGBColor) return 24;
  return 0;  // no DIB can be made, nothing is drawn
}

void copy_rows(const PSPixelMap& source, const VRect& rect, int width, int rows, std::uint8_t* dib,
               int dibRowBytes) {
  const auto* base = static_cast<const std::uint8_t*>(source.baseAddr);
  for (int row = 0; row < rows; ++row) {
    const std::uint8_t* from = base + static_cast<std::ptrdiff_t>(row) * source.rowBytes;
    std::uint8_t* to = dib + static_cast<std::ptrdiff_t>(row) * dibRowBytes;
    if (source.imageMode == plugInModeGrayScale) {
      std::memcpy(to, from + rect.left, width);
      continue;
    }
    for (int column = 0; column < width; ++column, from += source.colBytes, to += 3) {
      to[0] = from[2];
      to[1] = from[1];
      to[2] = from[0];
    }
  }
}

}  // namespace

OSErr display_pixels(const PSPixelMap* source, const VRect* srcRect, std::int32_t dstRow,
                     std::int32_t dstCol, void* platformContext) noexcept {
  if (!platformContext || !source || !srcRect || source->rowBytes == 0 || !source->baseAddr)
    return filterBadParameters;
  const int width = srcRect->right - srcRect->left;
  const int rows = srcRect->bottom - srcRect->top;
  const int bits = bits_per_pixel(source->imageMode);

  DibInfo info{};
  info.header.biSize = sizeof(BITMAPINFOHEADER);
  info.header.biWidth = width;
  info.header.biHeight = -rows;
  info.header.biPlanes = 1;
  info.header.biBitCount = static_cast<WORD>(bits);
  info.header.biCompression = BI_RGB;
  if (source->imageMode == plugInModeGrayScale)
    for (int i = 0; i < kGreyEntriesWritten; ++i)
      info.palette[i] = {static_cast<BYTE>(i), static_cast<BYTE>(i), static_cast<BYTE>(i), 0};

  auto device = static_cast<HDC>(platformContext);
  void* pixels = nullptr;
  HBITMAP dib = CreateDIBSection(device, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                 &pixels, nullptr, 0);
  if (!dib || !pixels) {
    if (dib) DeleteObject(dib);
    return noErr;
  }
  const int dibRowBytes = (width * bits / 8 + 3) & ~3;
  copy_rows(*source, *srcRect, width, rows, static_cast<std::uint8_t*>(pixels), dibRowBytes);
  GdiFlush();

  HDC memory = CreateCompatibleDC(device);
  if (memory) {
    HGDIOBJ previous = SelectObject(memory, dib);
    BitBlt(device, dstCol, dstRow, width, rows, memory, 0, 0, SRCCOPY);
    SelectObject(memory, previous);
    DeleteDC(memory);
  }
  DeleteObject(dib);
  return noErr;
}

}  // namespace qnutil::psfilter
