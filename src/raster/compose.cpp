// DrawBitmap (scaled copy mixed by opacity) and CopyRect (plain copy).
//
// Both read and write pixel by pixel, rows top-down and columns left to
// right, straight from the two buffers: drawing an image onto itself thus
// reads pixels already written in the same call, as it always has.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "raster/compose_common.h"
#include "raster/qn_bitmap.h"
#include "raster/simd.h"

using qnutil::raster::ClippedRects;
using qnutil::raster::mix;
using qnutil::raster::PictureView;

namespace {

PictureView view_of(const CQnBitmap& image) {
  return {const_cast<uint8_t*>(image.Pixels()), image.Stride(), image.Width(), image.Height()};
}

// 8.8 fixed-point scale factor: trunc(single-precision ratio × 256).
int64_t scale_factor(int source_extent, int destination_extent) {
  return static_cast<int64_t>(static_cast<float>(source_extent) /
                              static_cast<float>(destination_extent) * 256.0f);
}

void draw_nearest(const PictureView& destination, const PictureView& source, const ClippedRects& r,
                  uint32_t a) {
  const int64_t fx = scale_factor(r.source_width, r.dest_width),
                fy = scale_factor(r.source_height, r.dest_height);
  std::vector<int> columns(r.dest_width);
  for (int i = 0; i < r.dest_width; ++i)
    columns[i] = r.corners.sx0 + static_cast<int>((int64_t{i} * 256 * fx) >> 16);
  for (int j = 0; j < r.dest_height; ++j) {
    const uint32_t* from =
        source.row(r.corners.sy0 + static_cast<int>((int64_t{j} * 256 * fy) >> 16));
    uint32_t* to = destination.row(r.corners.y0 + j) + r.corners.x0;
    if (a == 256) {
      for (int i = 0; i < r.dest_width; ++i) to[i] = from[columns[i]] & 0x00FFFFFFu;
    } else {
      for (int i = 0; i < r.dest_width; ++i) to[i] = mix(from[columns[i]], to[i], a);
    }
  }
}

// Σ c × w over four pixels, red and blue sharing a multiply: the weights
// sum to at most 256, so every lane stays below 65536.
inline uint32_t bilinear(uint32_t p00, uint32_t p01, uint32_t p10, uint32_t p11, uint32_t w00,
                         uint32_t w01, uint32_t w10, uint32_t w11) {
  const uint32_t red_blue = (p00 & 0xFF00FFu) * w00 + (p01 & 0xFF00FFu) * w01 +
                            (p10 & 0xFF00FFu) * w10 + (p11 & 0xFF00FFu) * w11;
  const uint32_t green =
      (p00 & 0xFF00u) * w00 + (p01 & 0xFF00u) * w01 + (p10 & 0xFF00u) * w10 + (p11 & 0xFF00u) * w11;
  return ((red_blue >> 8) & 0xFF00FFu) | ((green >> 8) & 0xFF00u);
}

struct BilinearColumn {
  int base, right;  // right == base where there is no right neighbour
  uint32_t tx;
  bool has_right;
};

// The neighbour to the right is taken only while the destination column
// index is below the source width - 1, and the one below only while the
// destination row index is below the source height - 1: tests on the
// destination indices, as images drawn by the host depend on. Where that
// would step past the source picture the base pixel stands in.
std::vector<BilinearColumn> bilinear_columns(const PictureView& source, const ClippedRects& r,
                                             int64_t fx) {
  std::vector<BilinearColumn> columns(r.dest_width);
  for (int i = 0; i < r.dest_width; ++i) {
    const int64_t vx = int64_t{i} * 256 * fx;
    const int base = r.corners.sx0 + static_cast<int>(vx >> 16);
    const bool right = i < source.width - 1 && base + 1 < source.width;
    columns[i] = {base, right ? base + 1 : base, static_cast<uint32_t>((vx >> 8) & 255), right};
  }
  return columns;
}

struct BilinearRow {
  const uint32_t* top;
  const uint32_t* bottom;  // == top where there is no row below
  uint32_t ty;
  bool below;
};

void bilinear_row_scalar(const BilinearRow& row, const std::vector<BilinearColumn>& columns,
                         uint32_t* to, uint32_t a) {
  const uint32_t ty = row.ty;
  for (size_t i = 0; i < columns.size(); ++i) {
    const BilinearColumn& c = columns[i];
    const uint32_t w00 = ((256 - ty) * (256 - c.tx)) >> 8, w01 = ((256 - ty) * c.tx) >> 8;
    const uint32_t w10 = ((256 - c.tx) * ty) >> 8, w11 = (ty * c.tx) >> 8;
    const uint32_t base = row.top[c.base];
    const uint32_t diagonal = row.below && c.has_right ? row.bottom[c.right] : base;
    const uint32_t sample =
        bilinear(base, row.top[c.right], row.bottom[c.base], diagonal, w00, w01, w10, w11);
    to[i] = a == 256 ? sample : mix(sample, to[i], a);
  }
}

#ifdef QNUTIL_RASTER_SSE2
// The same sums in 16-bit lanes: a pixel and its right neighbour share a
// register, and the weights of a missing neighbour are moved onto the base
// pixel (it stands in for it, and c × w1 + c × w2 == c × (w1 + w2) exactly).
// Weights depend only on tx and on whether there is a right neighbour, so
// each row makes them once for all 2 × 256 cases.
void bilinear_row_sse2(const BilinearRow& row, const std::vector<BilinearColumn>& columns,
                       uint32_t* to, uint32_t a) {
  alignas(16) __m128i weights[2][256][2];
  const uint32_t ty = row.ty;
  for (int has_right = 0; has_right < 2; ++has_right)
    for (uint32_t tx = 0; tx < 256; ++tx) {
      const uint32_t w00 = ((256 - ty) * (256 - tx)) >> 8, w01 = ((256 - ty) * tx) >> 8;
      const uint32_t w10 = ((256 - tx) * ty) >> 8, w11 = (ty * tx) >> 8;
      const bool diagonal = has_right && row.below;
      const short base = static_cast<short>(w00 + (has_right ? 0 : w01) + (row.below ? 0 : w10) +
                                            (diagonal ? 0 : w11));
      const short right = static_cast<short>(has_right ? w01 : 0);
      const short below = static_cast<short>(row.below ? w10 : 0);
      const short corner = static_cast<short>(diagonal ? w11 : 0);
      weights[has_right][tx][0] = _mm_set_epi16(right, right, right, right, base, base, base, base);
      weights[has_right][tx][1] =
          _mm_set_epi16(corner, corner, corner, corner, below, below, below, below);
    }
  const __m128i zero = _mm_setzero_si128();
  const __m128i opacity = _mm_set1_epi16(static_cast<short>(a)),
                rest = _mm_set1_epi16(static_cast<short>(256 - a));
  for (size_t i = 0; i < columns.size(); ++i) {
    const BilinearColumn& c = columns[i];
    const __m128i* w = weights[c.has_right][c.tx];
    const __m128i upper =
        _mm_unpacklo_epi8(_mm_unpacklo_epi32(_mm_cvtsi32_si128(static_cast<int>(row.top[c.base])),
                                             _mm_cvtsi32_si128(static_cast<int>(row.top[c.right]))),
                          zero);
    const __m128i lower = _mm_unpacklo_epi8(
        _mm_unpacklo_epi32(_mm_cvtsi32_si128(static_cast<int>(row.bottom[c.base])),
                           _mm_cvtsi32_si128(static_cast<int>(row.bottom[c.right]))),
        zero);
    __m128i sum = _mm_add_epi16(_mm_mullo_epi16(upper, w[0]), _mm_mullo_epi16(lower, w[1]));
    sum = _mm_srli_epi16(_mm_add_epi16(sum, _mm_srli_si128(sum, 8)), 8);
    if (a != 256) {
      const __m128i there = _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(to[i])), zero);
      sum = _mm_srli_epi16(
          _mm_add_epi16(_mm_mullo_epi16(sum, opacity), _mm_mullo_epi16(there, rest)), 8);
    }
    to[i] = static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(sum, sum))) & 0x00FFFFFFu;
  }
}
#endif

void draw_bilinear(const PictureView& destination, const PictureView& source, const ClippedRects& r,
                   uint32_t a) {
  const int64_t fx = scale_factor(r.source_width, r.dest_width),
                fy = scale_factor(r.source_height, r.dest_height);
  const auto columns = bilinear_columns(source, r, fx);
  for (int j = 0; j < r.dest_height; ++j) {
    const int64_t vy = (int64_t{j} * 256 * fy) >> 8;
    const int base_row = r.corners.sy0 + static_cast<int>(vy >> 8);
    const bool below = j < source.height - 1 && base_row + 1 < source.height;
    const uint32_t* top = source.row(base_row);
    const BilinearRow row{top, below ? source.row(base_row + 1) : top,
                          static_cast<uint32_t>(vy & 255), below};
    uint32_t* to = destination.row(r.corners.y0 + j) + r.corners.x0;
#ifdef QNUTIL_RASTER_SSE2
    // Drawing onto itself must read and write strictly pixel by pixel.
    if (source.pixels != destination.pixels) {
      bilinear_row_sse2(row, columns, to, a);
      continue;
    }
#endif
    bilinear_row_scalar(row, columns, to, a);
  }
}

}  // namespace

void CQnBitmap::DrawBitmap(int x, int y, int width, int height, const CQnBitmap* source,
                           int sourceX, int sourceY, int sourceWidth, int sourceHeight,
                           int opacity) {
  if (!InWorkingFormat() || !source || !source->InWorkingFormat()) return;
  if (interpolation_mode_ < 0 || interpolation_mode_ > 2) return;
  const PictureView to = view_of(*this), from = view_of(*source);
  const ClippedRects rects = qnutil::raster::clip_rects(
      to.size(), x, y, width, height, from.size(), sourceX, sourceY, sourceWidth, sourceHeight);
  if (rects.empty()) return;
  const int a = qnutil::raster::opacity_weight(opacity);
  switch (interpolation_mode_) {
    case 0: draw_nearest(to, from, rects, a); break;
    case 1: draw_bilinear(to, from, rects, a); break;
    default: qnutil::raster::draw_smooth(to, from, rects, a); break;
  }
}

void CQnBitmap::CopyRect(int x, int y, int width, int height, const CQnBitmap* source, int sourceX,
                         int sourceY) {
  if (!InWorkingFormat() || !source || !source->InWorkingFormat()) return;
  const PictureView to = view_of(*this), from = view_of(*source);
  const auto c = qnutil::raster::clip_corners(to.size(), x, y, from.size(), sourceX, sourceY);
  auto last = [](int64_t value, int extent) {
    return std::max<int64_t>(std::min<int64_t>(value, extent - 1), 0);
  };
  // Spans are inclusive: a span of n copies n + 1 columns or rows, and a
  // span of 0 copies nothing.
  const int64_t columns = std::min(last(int64_t{x} + width, to.width) - c.x0,
                                   last(int64_t{sourceX} + width, from.width) - c.sx0);
  const int64_t rows = std::min(last(int64_t{y} + height, to.height) - c.y0,
                                last(int64_t{sourceY} + height, from.height) - c.sy0);
  if (columns <= 0 || rows <= 0) return;
  for (int64_t j = 0; j <= rows; ++j) {
    const uint32_t* from_row = from.row(static_cast<int>(c.sy0 + j)) + c.sx0;
    uint32_t* to_row = to.row(static_cast<int>(c.y0 + j)) + c.x0;
    for (int64_t i = 0; i <= columns; ++i) to_row[i] = from_row[i];
  }
}
