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

using qnutil::raster::ClippedRects;
using qnutil::raster::mix;
using qnutil::raster::PictureView;

namespace {

PictureView view_of(const CQnBitmap& image) {
  return {const_cast<uint8_t*>(image.Pixels()), image.Stride(), image.Width(), image.Height()};
}

// 8.8 fixed-point scale factor: trunc(single-precision ratio × 256).
int64_t scale_factor(int source_extent, int destination_extent) {
  return static_cast<int64_t>(static_cast<float>(source_extent) / static_cast<float>(destination_extent) * 256.0f);
}

void draw_nearest(const PictureView& destination, const PictureView& source, const ClippedRects& r, uint32_t a) {
  const int64_t fx = scale_factor(r.sW, r.dW), fy = scale_factor(r.sH, r.dH);
  std::vector<int> columns(r.dW);
  for (int i = 0; i < r.dW; ++i)
    columns[i] = r.corners.sx0 + static_cast<int>((int64_t{i} * 256 * fx) >> 16);
  for (int j = 0; j < r.dH; ++j) {
    const uint32_t* from = source.row(r.corners.sy0 + static_cast<int>((int64_t{j} * 256 * fy) >> 16));
    uint32_t* to = destination.row(r.corners.y0 + j) + r.corners.x0;
    if (a == 256) {
      for (int i = 0; i < r.dW; ++i) to[i] = from[columns[i]] & 0x00FFFFFFu;
    } else {
      for (int i = 0; i < r.dW; ++i) to[i] = mix(from[columns[i]], to[i], a);
    }
  }
}

// Σ c × w over four pixels, red and blue sharing a multiply: the weights
// sum to at most 256, so every lane stays below 65536.
inline uint32_t bilinear(uint32_t p00, uint32_t p01, uint32_t p10, uint32_t p11, uint32_t w00, uint32_t w01,
                         uint32_t w10, uint32_t w11) {
  const uint32_t red_blue =
      (p00 & 0xFF00FFu) * w00 + (p01 & 0xFF00FFu) * w01 + (p10 & 0xFF00FFu) * w10 + (p11 & 0xFF00FFu) * w11;
  const uint32_t green = (p00 & 0xFF00u) * w00 + (p01 & 0xFF00u) * w01 + (p10 & 0xFF00u) * w10 + (p11 & 0xFF00u) * w11;
  return ((red_blue >> 8) & 0xFF00FFu) | ((green >> 8) & 0xFF00u);
}

// The neighbour to the right is taken only while the destination column
// index is below the source width - 1, and the one below only while the
// destination row index is below the source height - 1: tests on the
// destination indices, as images drawn by the host depend on. Where that
// would step past the source picture the base pixel stands in.
void draw_bilinear(const PictureView& destination, const PictureView& source, const ClippedRects& r, uint32_t a) {
  const int64_t fx = scale_factor(r.sW, r.dW), fy = scale_factor(r.sH, r.dH);
  struct Column {
    int base, right;
    uint32_t tx;
  };
  std::vector<Column> columns(r.dW);
  for (int i = 0; i < r.dW; ++i) {
    const int64_t vx = int64_t{i} * 256 * fx;
    const int base = r.corners.sx0 + static_cast<int>(vx >> 16);
    const bool right = i < source.width - 1 && base + 1 < source.width;
    columns[i] = {base, right ? base + 1 : base, static_cast<uint32_t>((vx >> 8) & 255)};
  }
  for (int j = 0; j < r.dH; ++j) {
    const int64_t vy = (int64_t{j} * 256 * fy) >> 8;
    const int base_row = r.corners.sy0 + static_cast<int>(vy >> 8);
    const bool below = j < source.height - 1 && base_row + 1 < source.height;
    const uint32_t ty = static_cast<uint32_t>(vy & 255);
    const uint32_t* top = source.row(base_row);
    const uint32_t* bottom = below ? source.row(base_row + 1) : top;
    uint32_t* to = destination.row(r.corners.y0 + j) + r.corners.x0;
    for (int i = 0; i < r.dW; ++i) {
      const Column& c = columns[i];
      const uint32_t w00 = ((256 - ty) * (256 - c.tx)) >> 8, w01 = ((256 - ty) * c.tx) >> 8;
      const uint32_t w10 = ((256 - c.tx) * ty) >> 8, w11 = (ty * c.tx) >> 8;
      const uint32_t base = top[c.base];
      const uint32_t diagonal = below && c.right != c.base ? bottom[c.right] : base;
      const uint32_t sample = bilinear(base, top[c.right], bottom[c.base], diagonal, w00, w01, w10, w11);
      to[i] = a == 256 ? sample : mix(sample, to[i], a);
    }
  }
}

}  // namespace

void CQnBitmap::DrawBitmap(int x, int y, int width, int height, const CQnBitmap* source, int sourceX, int sourceY,
                           int sourceWidth, int sourceHeight, int opacity) {
  if (!InWorkingFormat() || !source || !source->InWorkingFormat()) return;
  if (interpolation_mode_ < 0 || interpolation_mode_ > 2) return;
  const PictureView to = view_of(*this), from = view_of(*source);
  const ClippedRects rects = qnutil::raster::clip_rects(to.size(), x, y, width, height, from.size(), sourceX, sourceY,
                                                        sourceWidth, sourceHeight);
  if (rects.empty()) return;
  const int a = qnutil::raster::opacity_weight(opacity);
  switch (interpolation_mode_) {
    case 0: draw_nearest(to, from, rects, a); break;
    case 1: draw_bilinear(to, from, rects, a); break;
    default: qnutil::raster::draw_smooth(to, from, rects, a); break;
  }
}

void CQnBitmap::CopyRect(int x, int y, int width, int height, const CQnBitmap* source, int sourceX, int sourceY) {
  if (!InWorkingFormat() || !source || !source->InWorkingFormat()) return;
  const PictureView to = view_of(*this), from = view_of(*source);
  const auto c = qnutil::raster::clip_corners(to.size(), x, y, from.size(), sourceX, sourceY);
  auto last = [](int64_t value, int extent) { return std::max<int64_t>(std::min<int64_t>(value, extent - 1), 0); };
  // Spans are inclusive: a span of n copies n + 1 columns or rows, and a
  // span of 0 copies nothing.
  const int64_t columns = std::min(last(int64_t{x} + width, to.width) - c.x0, last(int64_t{sourceX} + width, from.width) - c.sx0);
  const int64_t rows = std::min(last(int64_t{y} + height, to.height) - c.y0, last(int64_t{sourceY} + height, from.height) - c.sy0);
  if (columns <= 0 || rows <= 0) return;
  for (int64_t j = 0; j <= rows; ++j) {
    const uint32_t* from_row = from.row(static_cast<int>(c.sy0 + j)) + c.sx0;
    uint32_t* to_row = to.row(static_cast<int>(c.y0 + j)) + c.x0;
    for (int64_t i = 0; i <= columns; ++i) to_row[i] = from_row[i];
  }
}
