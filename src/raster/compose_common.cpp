#include "raster/compose_common.h"

#include <algorithm>

namespace qnutil::raster {
namespace {

// max(min(v, hi), lo): with hi < lo (an empty picture) the low bound wins.
int64_t clamp_to(int64_t value, int64_t low, int64_t high) {
  return std::max(std::min(value, high), low);
}

}  // namespace

ClippedCorners clip_corners(PictureSize destination, int x, int y, PictureSize source, int source_x,
                            int source_y) {
  const int64_t W = destination.width, H = destination.height, SW = source.width,
                SH = source.height;
  ClippedCorners c;
  c.x0 = static_cast<int>(clamp_to(source_x < 0 ? int64_t{x} - source_x : x, 0, W - 1));
  c.y0 = static_cast<int>(clamp_to(source_y < 0 ? int64_t{y} - source_y : y, 0, H - 1));
  c.sx0 = static_cast<int>(clamp_to(x < 0 ? int64_t{source_x} - x : source_x, 0, SW - 1));
  c.sy0 = static_cast<int>(clamp_to(y < 0 ? int64_t{source_y} - y : source_y, 0, SH - 1));
  return c;
}

ClippedRects clip_rects(PictureSize destination, int x, int y, int width, int height,
                        PictureSize source, int source_x, int source_y, int source_width,
                        int source_height) {
  ClippedRects r;
  r.corners = clip_corners(destination, x, y, source, source_x, source_y);
  const int64_t W = destination.width, H = destination.height, SW = source.width,
                SH = source.height;
  r.dest_width = static_cast<int>(clamp_to(int64_t{x} + width, 0, W - 1) - r.corners.x0 + 1);
  r.dest_height = static_cast<int>(clamp_to(int64_t{y} + height, 0, H - 1) - r.corners.y0 + 1);
  r.source_width =
      static_cast<int>(clamp_to(int64_t{source_width} + source_x, 0, SW - 1) - r.corners.sx0 + 1);
  r.source_height =
      static_cast<int>(clamp_to(int64_t{source_y} + source_height, 0, SH - 1) - r.corners.sy0 + 1);
  return r;
}

int opacity_weight(int opacity) {
  return static_cast<int>(static_cast<float>(std::clamp(opacity, 0, 100)) / 100.0f * 256.0f);
}

}  // namespace qnutil::raster
