// Clipping and opacity mixing shared by the compositing operations.
// Rectangles count from the top-left corner of each picture; extents are
// inclusive, so an unclipped width w covers w + 1 columns.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qnutil::raster {

struct PictureSize {
  int width;
  int height;
};

// Words of a working-format image addressed by picture row (0 at the top)
// although the buffer runs bottom-up.
struct PictureView {
  uint8_t* pixels;
  uint32_t stride;
  int width, height;
  uint32_t* row(int picture_row) const {
    return reinterpret_cast<uint32_t*>(pixels +
                                       static_cast<size_t>(height - 1 - picture_row) * stride);
  }
  PictureSize size() const { return {width, height}; }
};

// Start corners of both rectangles after clipping, as every compositing
// operation clips them. A negative source corner moves the destination
// corner by the same amount and the other way round.
struct ClippedCorners {
  int x0, y0;    // destination
  int sx0, sy0;  // source
};
ClippedCorners clip_corners(PictureSize destination, int x, int y, PictureSize source, int source_x,
                            int source_y);

// DrawBitmap's extents (inclusive), destination and source.
struct ClippedRects {
  ClippedCorners corners;
  int dest_width, dest_height, source_width, source_height;
  bool empty() const {
    return dest_width <= 0 || dest_height <= 0 || source_width <= 0 || source_height <= 0;
  }
};
ClippedRects clip_rects(PictureSize destination, int x, int y, int width, int height,
                        PictureSize source, int source_x, int source_y, int source_width,
                        int source_height);

// The smoothing variant (interpolation mode 2): area averaging where the
// source is reduced and bicubic interpolation where it is enlarged, each
// axis on its own, then mixed by the opacity weight a like the others.
void draw_smooth(const PictureView& destination, const PictureView& source,
                 const ClippedRects& rects, int a);

// Opacity in per cent (clamped to 0..100) as the source weight a of 256.
int opacity_weight(int opacity);

// (s × a + d × (256 - a)) >> 8 for blue, green and red; fourth byte 0.
// Both products fit their 16-bit lanes, so red and blue share a multiply.
inline uint32_t mix(uint32_t source, uint32_t destination, uint32_t a) {
  const uint32_t b = 256 - a;
  const uint32_t red_blue =
      (((source & 0xFF00FFu) * a + (destination & 0xFF00FFu) * b) >> 8) & 0xFF00FFu;
  const uint32_t green = (((source & 0xFF00u) * a + (destination & 0xFF00u) * b) >> 8) & 0xFF00u;
  return red_blue | green;
}

}  // namespace qnutil::raster
