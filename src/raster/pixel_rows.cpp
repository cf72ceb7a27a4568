#include "raster/pixel_rows.h"

#include <cstring>

#include "raster/simd.h"

namespace qnutil::raster {
namespace {

uint32_t load_le32(const uint8_t* bytes) {
  uint32_t word;
  std::memcpy(&word, bytes, 4);
  return word;  // every target of the library is little-endian
}

void store_le32(uint8_t* bytes, uint32_t word) { std::memcpy(bytes, &word, 4); }

// Four 24-bit pixels are three whole words: unpacking and packing them a
// group at a time keeps the loops free of byte loads and stores.
void row_24_to_working(const uint8_t* source, uint32_t* destination, int width) {
  int x = 0;
  for (; x + 4 <= width; x += 4, source += 12) {
    const uint32_t w0 = load_le32(source), w1 = load_le32(source + 4), w2 = load_le32(source + 8);
    destination[x] = w0 & 0xFFFFFFu;
    destination[x + 1] = ((w0 >> 24) | (w1 << 8)) & 0xFFFFFFu;
    destination[x + 2] = ((w1 >> 16) | (w2 << 16)) & 0xFFFFFFu;
    destination[x + 3] = w2 >> 8;
  }
  for (; x < width; ++x, source += 3)
    destination[x] = source[0] | uint32_t{source[1]} << 8 | uint32_t{source[2]} << 16;
}

}  // namespace

void palette_words(const uint8_t* palette, uint32_t words[256]) {
  for (int i = 0; i < 256; ++i) {
    const uint8_t* entry = palette + 4 * i;
    words[i] = entry[0] | uint32_t{entry[1]} << 8 | uint32_t{entry[2]} << 16;
  }
}

void row_to_working(const uint8_t* source, uint32_t* destination, int width, unsigned bit_count,
                    const uint32_t* palette_words) {
  switch (bit_count) {
    case 8:
      for (int x = 0; x < width; ++x) destination[x] = palette_words[source[x]];
      break;
    case 16:
      for (int x = 0; x < width; ++x) {
        const uint32_t w = source[2 * x] | uint32_t{source[2 * x + 1]} << 8;
        destination[x] = ((w >> 10) & 31) << 16 | ((w >> 5) & 31) << 8 | (w & 31);
      }
      break;
    case 24: row_24_to_working(source, destination, width); break;
    case 32: std::memcpy(destination, source, static_cast<size_t>(width) * 4); break;
    default: std::memset(destination, 0, static_cast<size_t>(width) * 4); break;
  }
}

void expand_24bit_in_place(uint8_t* buffer, int width, int height, uint32_t stride24) {
  // Every pixel's word lies at or after its three bytes and after those of
  // all pixels before it, so going backwards never overwrites unread bytes.
  for (int y = height - 1; y >= 0; --y) {
    const uint8_t* row = buffer + static_cast<size_t>(y) * stride24;
    uint8_t* words = buffer + static_cast<size_t>(y) * width * 4;
    int x = width;
    for (; x % 4; --x) {
      const uint8_t* p = row + 3 * (x - 1);
      store_le32(words + 4 * (x - 1), p[0] | uint32_t{p[1]} << 8 | uint32_t{p[2]} << 16);
    }
#ifdef QNUTIL_RASTER_SSE2
    // One 16-byte load holds four pixels; byte shifts move pixel i to the
    // start of lane i. The four bytes read past the group belong to the
    // pixels after it, which are still unwritten source bytes (x >= 4) and
    // are masked away.
    const __m128i lane0 = _mm_set_epi32(0, 0, 0, 0xFFFFFF);
    const __m128i lane1 = _mm_set_epi32(0, 0, 0xFFFFFF, 0);
    const __m128i lane2 = _mm_set_epi32(0, 0xFFFFFF, 0, 0);
    const __m128i lane3 = _mm_set_epi32(0xFFFFFF, 0, 0, 0);
    for (; x > 0; x -= 4) {
      const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + 3 * (x - 4)));
      const __m128i low =
          _mm_or_si128(_mm_and_si128(v, lane0), _mm_and_si128(_mm_slli_si128(v, 1), lane1));
      const __m128i high = _mm_or_si128(_mm_and_si128(_mm_slli_si128(v, 2), lane2),
                                        _mm_and_si128(_mm_slli_si128(v, 3), lane3));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(words + 4 * (x - 4)), _mm_or_si128(low, high));
    }
#endif
    for (; x > 0; x -= 4) {
      const uint8_t* p = row + 3 * (x - 4);
      const uint32_t w0 = load_le32(p), w1 = load_le32(p + 4), w2 = load_le32(p + 8);
      uint8_t* out = words + 4 * (x - 4);
      store_le32(out + 12, w2 >> 8);
      store_le32(out + 8, ((w1 >> 16) | (w2 << 16)) & 0xFFFFFFu);
      store_le32(out + 4, ((w0 >> 24) | (w1 << 8)) & 0xFFFFFFu);
      store_le32(out, w0 & 0xFFFFFFu);
    }
  }
}

void row_to_24bit(const uint32_t* source, uint8_t* destination, int width, uint32_t stride) {
  uint8_t* out = destination;
  int x = 0;
  for (; x + 4 <= width; x += 4, out += 12) {
    const uint32_t p0 = source[x], p1 = source[x + 1], p2 = source[x + 2], p3 = source[x + 3];
    store_le32(out, (p0 & 0xFFFFFFu) | p1 << 24);
    store_le32(out + 4, ((p1 >> 8) & 0xFFFFu) | p2 << 16);
    store_le32(out + 8, ((p2 >> 16) & 0xFFu) | p3 << 8);
  }
  for (; x < width; ++x, out += 3) {
    out[0] = static_cast<uint8_t>(source[x]);
    out[1] = static_cast<uint8_t>(source[x] >> 8);
    out[2] = static_cast<uint8_t>(source[x] >> 16);
  }
  std::memset(out, 0, stride - static_cast<uint32_t>(out - destination));
}

}  // namespace qnutil::raster
