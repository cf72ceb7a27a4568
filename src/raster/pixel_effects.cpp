// Per-pixel adjustments: threshold, brightness, contrast and tint.
//
// Each adjustment is one small operation on a pixel word, written once as
// scalar code (the formula) and once for four pixels in SSE2 registers; the
// two give identical words. The fourth byte of every pixel becomes 0.
#include <algorithm>
#include <cstdint>

#include "raster/hsi.h"
#include "raster/qn_bitmap.h"
#include "raster/simd.h"

namespace {

constexpr uint32_t kColourMask = 0x00FFFFFFu;

uint32_t channel(uint32_t pixel, int shift) { return (pixel >> shift) & 255u; }

uint32_t pack(uint32_t red, uint32_t green, uint32_t blue) { return red << 16 | green << 8 | blue; }

template <class Op>
void apply_to_words(uint32_t* words, size_t count, const Op& op) {
  size_t i = 0;
#ifdef QNUTIL_RASTER_SSE2
  for (; i + 4 <= count; i += 4) {
    auto* at = reinterpret_cast<__m128i*>(words + i);
    _mm_storeu_si128(at, op.four(_mm_loadu_si128(at)));
  }
#endif
  for (; i < count; ++i) words[i] = op.one(words[i]);
}

// The working format has no row padding, so the image is one run of words.
template <class Op>
void apply_to_image(CQnBitmap& image, const Op& op) {
  if (image.IsEmpty() || image.BytesPerPixel() != 4) return;
  apply_to_words(reinterpret_cast<uint32_t*>(image.Pixels()), image.BufferSize() / 4, op);
}

#ifdef QNUTIL_RASTER_SSE2
__m128i colour_mask() { return _mm_set1_epi32(static_cast<int>(kColourMask)); }
#endif

// L = 76 R + 150 G + 29 B, that is (channel × weight) >> 8 with the
// weights 19456, 38400 and 7424. Bright pixels turn black and dark ones
// white: the inverted sense is what callers expect of this operation.
struct ThresholdOp {
  int32_t limit;  // level × 256
  uint32_t one(uint32_t p) const {
    const int32_t luminance =
        static_cast<int32_t>(76 * channel(p, 16) + 150 * channel(p, 8) + 29 * channel(p, 0));
    return luminance > limit ? 0u : kColourMask;
  }
#ifdef QNUTIL_RASTER_SSE2
  __m128i four(__m128i p) const {
    const __m128i byte = _mm_set1_epi32(255);
    const __m128i blue = _mm_and_si128(p, byte);
    const __m128i green = _mm_and_si128(_mm_srli_epi32(p, 8), byte);
    const __m128i red = _mm_and_si128(_mm_srli_epi32(p, 16), byte);
    // Products stay below 65536, so 16-bit multiplies in 32-bit lanes are exact.
    const __m128i luminance =
        _mm_add_epi32(_mm_add_epi32(_mm_mullo_epi16(red, _mm_set1_epi32(76)),
                                    _mm_mullo_epi16(green, _mm_set1_epi32(150))),
                      _mm_mullo_epi16(blue, _mm_set1_epi32(29)));
    const __m128i black = _mm_cmpgt_epi32(luminance, _mm_set1_epi32(limit));
    return _mm_andnot_si128(black, colour_mask());
  }
#endif
};

struct BrightnessOp {
  int delta;  // -255..255
  uint32_t one(uint32_t p) const {
    auto shifted = [&](int shift) {
      return static_cast<uint32_t>(std::clamp(int(channel(p, shift)) + delta, 0, 255));
    };
    return pack(shifted(16), shifted(8), shifted(0));
  }
#ifdef QNUTIL_RASTER_SSE2
  __m128i four(__m128i p) const {
    const __m128i amount =
        _mm_and_si128(_mm_set1_epi8(static_cast<char>(delta < 0 ? -delta : delta)), colour_mask());
    p = delta < 0 ? _mm_subs_epu8(p, amount) : _mm_adds_epu8(p, amount);
    return _mm_and_si128(p, colour_mask());
  }
#endif
};

// ((c - 128) × k + 32768) >> 8 == ((c - 128) × k >> 8) + 128, and with
// k <= 256 the product fits a signed 16-bit lane and the result 0..255.
struct ContrastOp {
  int k;
  uint32_t one(uint32_t p) const {
    auto pulled = [&](int shift) {
      return static_cast<uint32_t>(
          std::clamp(((int(channel(p, shift)) - 128) * k + 32768) >> 8, 0, 255));
    };
    return pack(pulled(16), pulled(8), pulled(0));
  }
#ifdef QNUTIL_RASTER_SSE2
  __m128i half(__m128i words16) const {
    const __m128i centred = _mm_sub_epi16(words16, _mm_set1_epi16(128));
    return _mm_add_epi16(
        _mm_srai_epi16(_mm_mullo_epi16(centred, _mm_set1_epi16(static_cast<short>(k))), 8),
        _mm_set1_epi16(128));
  }
  __m128i four(__m128i p) const {
    const __m128i zero = _mm_setzero_si128();
    const __m128i low = half(_mm_unpacklo_epi8(p, zero)), high = half(_mm_unpackhi_epi8(p, zero));
    return _mm_and_si128(_mm_packus_epi16(low, high), colour_mask());
  }
#endif
};

// c × 256 + (C - c) × w == c × (256 - w) + C × w, which never leaves
// 0..65280 and so fits unsigned 16-bit lanes.
struct TintOp {
  uint32_t colour;
  int w;  // 0..256
  uint32_t one(uint32_t p) const {
    auto toward = [&](int shift) {
      const int c = int(channel(p, shift)), target = int(channel(colour, shift));
      return static_cast<uint32_t>((c * 256 + (((target - c) * 256 * w) >> 8)) / 256);
    };
    return pack(toward(16), toward(8), toward(0));
  }
#ifdef QNUTIL_RASTER_SSE2
  __m128i half(__m128i words16) const {
    const __m128i target =
        _mm_set_epi16(0, short(channel(colour, 16) * w), short(channel(colour, 8) * w),
                      short(channel(colour, 0) * w), 0, short(channel(colour, 16) * w),
                      short(channel(colour, 8) * w), short(channel(colour, 0) * w));
    const __m128i kept = _mm_mullo_epi16(words16, _mm_set1_epi16(static_cast<short>(256 - w)));
    return _mm_srli_epi16(_mm_add_epi16(kept, target), 8);
  }
  __m128i four(__m128i p) const {
    const __m128i zero = _mm_setzero_si128();
    const __m128i low = half(_mm_unpacklo_epi8(p, zero)), high = half(_mm_unpackhi_epi8(p, zero));
    return _mm_and_si128(_mm_packus_epi16(low, high), colour_mask());
  }
#endif
};

}  // namespace

void CQnBitmap::Threshold(int level) {
  apply_to_image(*this, ThresholdOp{std::clamp(level, 0, 255) * 256});
}

void CQnBitmap::Brightness(int delta) {
  apply_to_image(*this, BrightnessOp{std::clamp(delta, -255, 255)});
}

void CQnBitmap::Contrast(int level) {
  apply_to_image(*this, ContrastOp{static_cast<int>(256.0 / std::clamp(level, 1, 100))});
}

void CQnBitmap::Tint(uint32_t colour) {
  const uint32_t intensity = qnutil::raster::rgb_to_hsi(colour) & 255u;
  apply_to_image(*this, TintOp{colour, static_cast<int>(intensity * 65536u / 65280u)});
}

void CQnBitmap::ToHSI() {
  if (!InWorkingFormat() || colour_space_ == 1) return;
  auto* words = reinterpret_cast<uint32_t*>(pixels_);
  for (uint32_t i = 0, n = buffer_size_ / 4; i < n; ++i)
    words[i] = qnutil::raster::rgb_to_hsi(words[i]);
  colour_space_ = 1;
}

void CQnBitmap::FromHSI() {
  if (!InWorkingFormat() || colour_space_ != 1) return;
  auto* words = reinterpret_cast<uint32_t*>(pixels_);
  for (uint32_t i = 0, n = buffer_size_ / 4; i < n; ++i)
    words[i] = qnutil::raster::hsi_to_rgb(words[i]);
  colour_space_ = 0;
}
