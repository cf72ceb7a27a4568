// CQnBitmap and GDI: device bitmaps in and out, and device output.
#include <windows.h>

#include <cstdint>
#include <cstdlib>

#include "raster/pixel_layout.h"
#include "raster/qn_bitmap.h"

static_assert(sizeof(BITMAPFILEHEADER) == sizeof(QnBmpFileHeader));
static_assert(sizeof(BITMAPINFOHEADER) == sizeof(QnBmpInfoHeader));

namespace {

// Device bitmaps beyond what the working buffer can hold are not loaded.
bool holdable(const BITMAP& bitmap) {
  if (bitmap.bmWidth <= 0 || bitmap.bmHeight <= 0 || bitmap.bmWidthBytes <= 0) return false;
  const auto height = static_cast<std::uint64_t>(bitmap.bmHeight);
  return height * static_cast<std::uint64_t>(bitmap.bmWidthBytes) <=
             qnutil::raster::kMaxBufferBytes &&
         height * static_cast<std::uint64_t>(bitmap.bmWidth) * 4 <= qnutil::raster::kMaxBufferBytes;
}

}  // namespace

void CQnBitmap::LoadFromHBitmap(HBITMAP bitmap) {
  ReleasePixels();
  BITMAP description{};
  if (!GetObjectA(bitmap, sizeof description, &description)) return;
  // Palette-based device bitmaps are not read.
  if (description.bmBitsPixel <= 8 || !holdable(description)) return;
  const uint32_t size =
      static_cast<uint32_t>(description.bmHeight) * static_cast<uint32_t>(description.bmWidthBytes);
  auto* pixels = static_cast<uint8_t*>(std::malloc(size));
  if (!pixels) return;
  GetBitmapBits(bitmap, static_cast<LONG>(size), pixels);
  pixels_ = pixels;
  bytes_per_pixel_ = description.bmBitsPixel / 8u;
  stride_ = static_cast<uint32_t>(description.bmWidthBytes);
  buffer_size_ = size;

  QnBmpFileHeader& file = headers_.file;
  file.bfType = kBmpSignature;
  file.bfReserved1 = file.bfReserved2 = 0;
  file.bfOffBits = kHeaderBytes;
  file.bfSize = size + kHeaderBytes;
  QnBmpInfoHeader& info = headers_.info;
  info = QnBmpInfoHeader{};
  info.biSize = sizeof info;
  info.biWidth = description.bmWidth;
  info.biHeight = description.bmHeight;
  info.biPlanes = 1;
  info.biBitCount = description.bmBitsPixel;

  ConvertTo32Bit();
  // Device bitmap rows run top-down, the working format's bottom-up.
  FlipVertical();
}

void CQnBitmap::SaveToHBitmap(HBITMAP* bitmap) {
  // An existing handle is never replaced: the caller owns what it points to.
  if (!InWorkingFormat() || !bitmap || *bitmap) return;
  FlipVertical();
  *bitmap = CreateBitmap(Width(), Height(), 1, headers_.info.biBitCount, pixels_);
  FlipVertical();
}

void CQnBitmap::Draw(HDC dc) { DrawAt(dc, 0, 0); }

void CQnBitmap::DrawAt(HDC dc, int x, int y) {
  if (!pixels_) return;
  SetDIBitsToDevice(dc, x, y, static_cast<DWORD>(Width()), static_cast<DWORD>(Height()), 0, 0, 0,
                    static_cast<UINT>(Height()), pixels_,
                    reinterpret_cast<const BITMAPINFO*>(&headers_.info), DIB_RGB_COLORS);
}

void CQnBitmap::StretchDraw(HDC dc, int x, int y, int width, int height) {
  if (!pixels_) return;
  StretchDIBits(dc, x, y, width, height, 0, 0, Width(), Height(), pixels_,
                reinterpret_cast<const BITMAPINFO*>(&headers_.info), DIB_RGB_COLORS, SRCCOPY);
}
