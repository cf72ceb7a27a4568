// 3 × 3 box blur: each channel becomes ⌊(sum of the 3 × 3 neighbourhood) / 9⌋
// with edge pixels repeated, read from the unmodified image; the fourth
// byte becomes 0.
//
// Neighbours are always read from the unmodified image. The sum is built separably: per row, the
// three source rows are added channel by channel into 16-bit lanes (with the edge columns repeated
// at both ends), then three neighbouring column sums are added. A sum is at most 9 × 255 = 2295,
// and for such values ⌊s / 9⌋ == (s × 7282) >> 16.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "raster/qn_bitmap.h"
#include "raster/simd.h"

namespace {

constexpr uint32_t kDivideBy9 = 7282;  // ceil(65536 / 9)

// Column sums of one output row: 4 lanes (blue, green, red, fourth) per
// pixel, for columns -1 .. width.
void sum_columns(const uint32_t* above, const uint32_t* row, const uint32_t* below, int width,
                 uint16_t* sums) {
  uint16_t* out = sums + 4;
  int x = 0;
#ifdef QNUTIL_RASTER_SSE2
  const __m128i zero = _mm_setzero_si128();
  for (; x + 4 <= width; x += 4, out += 16) {
    const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(above + x));
    const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + x));
    const __m128i c = _mm_loadu_si128(reinterpret_cast<const __m128i*>(below + x));
    const __m128i low =
        _mm_add_epi16(_mm_add_epi16(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero)),
                      _mm_unpacklo_epi8(c, zero));
    const __m128i high =
        _mm_add_epi16(_mm_add_epi16(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero)),
                      _mm_unpackhi_epi8(c, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), low);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), high);
  }
#endif
  for (; x < width; ++x, out += 4)
    for (int lane = 0; lane < 4; ++lane)
      out[lane] =
          static_cast<uint16_t>(((above[x] >> (8 * lane)) & 255) + ((row[x] >> (8 * lane)) & 255) +
                                ((below[x] >> (8 * lane)) & 255));
  std::copy(sums + 4, sums + 8, sums);  // column -1 repeats column 0
  std::copy(sums + 4 * width, sums + 4 * width + 4,
            sums + 4 * (width + 1));  // column width repeats width - 1
}

void blur_row(const uint16_t* sums, uint32_t* out, int width) {
  int x = 0;
#ifdef QNUTIL_RASTER_SSE2
  const __m128i divide = _mm_set1_epi16(static_cast<short>(kDivideBy9));
  const __m128i colour = _mm_set1_epi32(0x00FFFFFF);
  auto two = [&](int at) {
    const uint16_t* s = sums + 4 * at;
    const __m128i total =
        _mm_add_epi16(_mm_add_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s)),
                                    _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + 4))),
                      _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + 8)));
    return _mm_mulhi_epu16(total, divide);
  };
  for (; x + 4 <= width; x += 4) {
    const __m128i result = _mm_and_si128(_mm_packus_epi16(two(x), two(x + 2)), colour);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + x), result);
  }
#endif
  for (; x < width; ++x) {
    const uint16_t* s = sums + 4 * x;
    uint32_t word = 0;
    for (int lane = 0; lane < 3; ++lane)
      word |= ((uint32_t{s[lane]} + s[lane + 4] + s[lane + 8]) * kDivideBy9 >> 16) << (8 * lane);
    out[x] = word;
  }
}

}  // namespace

void CQnBitmap::Blur() {
  if (!InWorkingFormat()) return;
  // Rows are written back in place; the two source rows an output row
  // still needs after its own is overwritten (the one above and itself)
  // are kept as copies.
  const int width = Width(), height = Height();
  std::vector<uint32_t> above(width), current(width);
  std::vector<uint16_t> sums(4 * (static_cast<size_t>(width) + 2) + 8);
  auto row = [&](int y) { return reinterpret_cast<uint32_t*>(pixels_ + size_t(y) * stride_); };
  std::copy(row(0), row(0) + width, current.begin());
  for (int y = 0; y < height; ++y) {
    const uint32_t* below = y + 1 < height ? row(y + 1) : current.data();
    sum_columns(y > 0 ? above.data() : current.data(), current.data(), below, width, sums.data());
    blur_row(sums.data(), row(y), width);
    if (y + 1 < height) {
      above.swap(current);
      std::copy(row(y + 1), row(y + 1) + width, current.begin());
    }
  }
}
