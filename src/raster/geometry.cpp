// Mirrors and crop. Coordinates of Crop count from the top of the picture;
// buffer rows run bottom-up.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "raster/pixel_layout.h"
#include "raster/qn_bitmap.h"
#include "raster/simd.h"

namespace {

int64_t clamp64(int64_t value, int64_t low, int64_t high) {
  return std::max(std::min(value, high), low);
}

// Exchanges two rows through a small stack buffer: no allocation, and the
// chunks stay in the first-level cache.
void swap_rows(uint8_t* a, uint8_t* b, size_t bytes) {
  uint8_t chunk[4096];
  while (bytes) {
    const size_t n = std::min(bytes, sizeof chunk);
    std::memcpy(chunk, a, n);
    std::memcpy(a, b, n);
    std::memcpy(b, chunk, n);
    a += n;
    b += n;
    bytes -= n;
  }
}

void mirror_row(uint32_t* row, int width) {
  int left = 0, right = width - 1;
#ifdef QNUTIL_RASTER_SSE2
  for (; right - left >= 7; left += 4, right -= 4) {
    const __m128i l = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + left));
    const __m128i r = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + right - 3));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(row + left), _mm_shuffle_epi32(r, 0x1B));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(row + right - 3), _mm_shuffle_epi32(l, 0x1B));
  }
#endif
  for (; left < right; ++left, --right) std::swap(row[left], row[right]);
}

}  // namespace

void CQnBitmap::FlipVertical() {
  if (!pixels_) return;
  const int height = Height();
  for (int i = 0; i < height / 2; ++i)
    swap_rows(pixels_ + static_cast<size_t>(i) * stride_,
              pixels_ + static_cast<size_t>(height - 1 - i) * stride_, stride_);
}

void CQnBitmap::FlipHorizontal() {
  if (!InWorkingFormat()) return;
  for (int y = 0, height = Height(); y < height; ++y)
    mirror_row(reinterpret_cast<uint32_t*>(pixels_ + static_cast<size_t>(y) * stride_), Width());
}

void CQnBitmap::Crop(int x, int y, int width, int height) {
  if (!pixels_) return;
  const int64_t W = Width(), H = Height();
  // The bounds are W and H themselves: a rectangle that starts before the
  // picture keeps its full size measured from the clamped corner.
  const int64_t x0 = clamp64(x, 0, W), y0 = clamp64(y, 0, H);
  const int64_t y1 = clamp64(y0 + height, 0, H);
  const int64_t new_width = clamp64(x0 + width, 0, W) - x0;
  const int64_t new_height = y1 - y0;
  if (new_width <= 0 || new_height <= 0) return;
  // Rows move in place toward the start of the buffer: each lands at or
  // before where it was read.
  const uint32_t new_stride =
      *qnutil::raster::stride_for(static_cast<int32_t>(new_width), bytes_per_pixel_);
  const size_t row_bytes = static_cast<size_t>(new_width) * bytes_per_pixel_;
  for (int64_t k = 0; k < new_height; ++k) {
    uint8_t* out = pixels_ + k * new_stride;
    std::memmove(out, pixels_ + (H - y1 + k) * stride_ + x0 * bytes_per_pixel_, row_bytes);
    std::memset(out + row_bytes, 0, new_stride - row_bytes);
  }
  headers_.info.biWidth = static_cast<int32_t>(new_width);
  headers_.info.biHeight = static_cast<int32_t>(new_height);
  stride_ = new_stride;
  buffer_size_ = new_stride * static_cast<uint32_t>(new_height);
}
