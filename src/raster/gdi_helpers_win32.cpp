// GDI bitmap helpers: a window region from a bitmap, the embossed look of
// a disabled control, and drawing with one transparent colour.
#include <windows.h>

#include <cstdint>

#include "qnutil/gdi_win32.h"

namespace {

// Region data grows by this many rectangles and is turned into a region
// every kRectanglesPerRegion rectangles, so that no ExtCreateRegion call
// sees a larger block.
constexpr DWORD kRectangleGrowth = 100;
constexpr DWORD kRectanglesPerRegion = 2000;
constexpr DWORD kRegionHeaderBytes = sizeof(RGNDATAHEADER);
static_assert(kRegionHeaderBytes == 32 && sizeof(RECT) == 16);

DWORD region_block_bytes(DWORD capacity) { return kRegionHeaderBytes + sizeof(RECT) * capacity; }

void reset_region_header(RGNDATAHEADER& header) {
  header.nCount = 0;
  header.rcBound = RECT{LONG(0x7FFFFFFF), LONG(0x7FFFFFFF), 0, 0};
}

// Collects rectangles in a movable global block and merges them, batch by
// batch, into one region.
class RegionBuilder {
 public:
  RegionBuilder() {
    block_ = GlobalAlloc(GMEM_MOVEABLE, region_block_bytes(capacity_));
    if (block_) data_ = static_cast<RGNDATA*>(GlobalLock(block_));
    if (!data_) return;
    data_->rdh.dwSize = kRegionHeaderBytes;
    data_->rdh.iType = RDH_RECTANGLES;
    data_->rdh.nRgnSize = 0;
    reset_region_header(data_->rdh);
  }
  ~RegionBuilder() {
    if (data_) GlobalUnlock(block_);
    if (block_) GlobalFree(block_);
  }
  RegionBuilder(const RegionBuilder&) = delete;
  RegionBuilder& operator=(const RegionBuilder&) = delete;

  bool ready() const { return data_ != nullptr; }

  bool add(LONG left, LONG top, LONG right, LONG bottom) {
    if (data_->rdh.nCount == capacity_ && !grow()) return false;
    RECT& bound = data_->rdh.rcBound;
    reinterpret_cast<RECT*>(data_->Buffer)[data_->rdh.nCount] = RECT{left, top, right, bottom};
    if (left < bound.left) bound.left = left;
    if (top < bound.top) bound.top = top;
    if (right > bound.right) bound.right = right;
    if (bottom > bound.bottom) bound.bottom = bottom;
    if (++data_->rdh.nCount == kRectanglesPerRegion) flush();
    return true;
  }

  // Merges what is collected (also nothing: an empty region) into the
  // result; a region the system refuses is skipped and its rectangles lost.
  void flush() {
    if (const HRGN batch = ExtCreateRegion(nullptr, region_block_bytes(capacity_), data_)) {
      if (!result_) {
        result_ = batch;
      } else {
        CombineRgn(result_, result_, batch, RGN_OR);
        DeleteObject(batch);
      }
    }
    reset_region_header(data_->rdh);
  }

  HRGN result() const { return result_; }

 private:
  bool grow() {
    GlobalUnlock(block_);
    data_ = nullptr;
    const HGLOBAL larger =
        GlobalReAlloc(block_, region_block_bytes(capacity_ + kRectangleGrowth), GMEM_MOVEABLE);
    if (larger) {
      block_ = larger;
      capacity_ += kRectangleGrowth;
    }
    data_ = static_cast<RGNDATA*>(GlobalLock(block_));
    return larger && data_;
  }

  DWORD capacity_ = kRectangleGrowth;
  HGLOBAL block_ = nullptr;
  RGNDATA* data_ = nullptr;
  HRGN result_ = nullptr;
};

// The key is given as 0x00RRGGBB, matching the DIB's byte order blue,
// green, red; the fourth byte does not count.
bool is_key(std::uint32_t pixel, std::uint32_t key) { return ((pixel ^ key) & 0x00FFFFFFu) == 0; }

// Scans a bottom-up 32-bit DIB top row first, one rectangle per run of
// non-key pixels.
HRGN region_of_pixels(const std::uint8_t* bits, LONG width, LONG height, LONG row_bytes,
                      std::uint32_t key) {
  RegionBuilder builder;
  if (!builder.ready()) return nullptr;
  const std::uint8_t* row = bits + static_cast<std::ptrdiff_t>(height - 1) * row_bytes;
  for (LONG y = 0; y < height; ++y, row -= row_bytes) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
    for (LONG x = 0; x < width; ++x) {
      const LONG start = x;
      while (x < width && !is_key(pixels[x], key)) ++x;
      if (x > start && !builder.add(start, y, x, y + 1)) break;
    }
  }
  builder.flush();
  return builder.result();
}

}  // namespace

extern "C" QNUTIL_API HRGN QNUTIL_CALL QnUtil_CreateRegionFromBitmap(HBITMAP bitmap, uint32_t key) {
  if (!bitmap) return nullptr;
  const HDC memory = CreateCompatibleDC(nullptr);
  if (!memory) return nullptr;
  BITMAP source{};
  GetObjectA(bitmap, sizeof source, &source);
  BITMAPINFOHEADER info{};
  info.biSize = sizeof info;
  info.biWidth = source.bmWidth;
  info.biHeight = source.bmHeight;
  info.biPlanes = 1;
  info.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP dib = CreateDIBSection(memory, reinterpret_cast<const BITMAPINFO*>(&info),
                                       DIB_RGB_COLORS, &bits, nullptr, 0);
  // The memory DC here and the DIB at the end stay allocated, exactly as
  // hosts that count their GDI objects have always seen this call behave.
  if (!dib) return nullptr;
  const HGDIOBJ memory_bitmap = SelectObject(memory, dib);
  HRGN region = nullptr;
  if (const HDC copy = CreateCompatibleDC(memory)) {
    BITMAP dib_description{};
    GetObjectA(dib, sizeof dib_description, &dib_description);
    const LONG row_bytes = (dib_description.bmWidthBytes + 3) & ~3L;
    const HGDIOBJ copy_bitmap = SelectObject(copy, bitmap);
    BitBlt(memory, 0, 0, source.bmWidth, source.bmHeight, copy, 0, 0, SRCCOPY);
    region = region_of_pixels(static_cast<const std::uint8_t*>(bits), source.bmWidth,
                              source.bmHeight, row_bytes, key);
    SelectObject(copy, copy_bitmap);
    DeleteDC(copy);
  }
  SelectObject(memory, memory_bitmap);
  DeleteDC(memory);
  return region;
}

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_DrawEmbossedBitmap(HDC target, int x, int y,
                                                                 int width, int height,
                                                                 HBITMAP bitmap, int sourceX,
                                                                 int sourceY) {
  // Raster operation PSDPxax: the brush where the source is black, the
  // destination where it is white.
  constexpr DWORD kBrushWhereBlack = 0xB8074A;
  const HDC source_dc = CreateCompatibleDC(target);
  const HDC mask_dc = source_dc ? CreateCompatibleDC(source_dc) : nullptr;
  struct {
    BITMAPINFOHEADER header;
    RGBQUAD colours[2];
  } mask_info{};
  mask_info.header.biSize = sizeof mask_info.header;
  mask_info.header.biWidth = width;
  mask_info.header.biHeight = height;
  mask_info.header.biPlanes = 1;
  mask_info.header.biBitCount = 1;
  mask_info.colours[1] = RGBQUAD{0xFF, 0xFF, 0xFF, 0};
  void* mask_bits = nullptr;
  const HBITMAP mask =
      mask_dc ? CreateDIBSection(source_dc, reinterpret_cast<const BITMAPINFO*>(&mask_info),
                                 DIB_RGB_COLORS, &mask_bits, nullptr, 0)
              : nullptr;
  if (!mask) {
    if (mask_dc) DeleteDC(mask_dc);
    if (source_dc) DeleteDC(source_dc);
    return;
  }
  const HGDIOBJ old_mask = SelectObject(mask_dc, mask);
  const HGDIOBJ old_source = SelectObject(source_dc, bitmap);
  // Reduced to black and white by the copy into the 1-bit DIB.
  BitBlt(mask_dc, 0, 0, width, height, source_dc, sourceX, sourceY, SRCCOPY);

  const RECT area{x, y, x + width, y + height};
  FillRect(target, &area, GetSysColorBrush(COLOR_3DFACE));
  const HGDIOBJ old_brush = SelectObject(target, CreateSolidBrush(GetSysColor(COLOR_3DHILIGHT)));
  BitBlt(target, x + 1, y + 1, width, height, mask_dc, 0, 0, kBrushWhereBlack);
  DeleteObject(SelectObject(target, CreateSolidBrush(GetSysColor(COLOR_3DSHADOW))));
  BitBlt(target, x, y, width, height, mask_dc, 0, 0, kBrushWhereBlack);
  DeleteObject(SelectObject(target, old_brush));

  SelectObject(source_dc, old_source);
  SelectObject(mask_dc, old_mask);
  DeleteObject(mask);
  DeleteDC(mask_dc);
  DeleteDC(source_dc);
}

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_DrawTransparentBitmap(HDC target, HBITMAP bitmap,
                                                                    short x, short y,
                                                                    COLORREF transparent) {
  const COLORREF old_background = SetBkColor(target, RGB(255, 255, 255));
  const COLORREF old_text = SetTextColor(target, RGB(0, 0, 0));
  const HDC image_dc = CreateCompatibleDC(target);
  const HDC mask_dc = CreateCompatibleDC(target);
  const HGDIOBJ old_image = SelectObject(image_dc, bitmap);
  BITMAP image{};
  GetObjectA(bitmap, sizeof image, &image);
  const HBITMAP mask = CreateBitmap(image.bmWidth, image.bmHeight, 1, 1, nullptr);
  const HGDIOBJ old_mask = SelectObject(mask_dc, mask);

  // Colour to monochrome: the source's background colour becomes white.
  SetBkColor(image_dc, transparent);
  BitBlt(mask_dc, 0, 0, image.bmWidth, image.bmHeight, image_dc, 0, 0, SRCCOPY);
  // target ^ image, masked to 0 where the image shows, ^ image again.
  BitBlt(target, x, y, image.bmWidth, image.bmHeight, image_dc, 0, 0, SRCINVERT);
  BitBlt(target, x, y, image.bmWidth, image.bmHeight, mask_dc, 0, 0, SRCAND);
  BitBlt(target, x, y, image.bmWidth, image.bmHeight, image_dc, 0, 0, SRCINVERT);

  SelectObject(image_dc, old_image);
  SelectObject(mask_dc, old_mask);
  SetBkColor(target, old_background);
  SetTextColor(target, old_text);
  DeleteDC(image_dc);
  DeleteDC(mask_dc);
  DeleteObject(mask);
}
