#include "raster/pixel_layout.h"

namespace qnutil::raster {

std::optional<uint32_t> stride_for(int32_t width, uint32_t bytes_per_pixel) {
  if (width < 0) return std::nullopt;
  const uint64_t stride = (static_cast<uint64_t>(width) * bytes_per_pixel + 3u) & ~uint64_t{3};
  if (stride > kMaxBufferBytes) return std::nullopt;
  return static_cast<uint32_t>(stride);
}

std::optional<PixelLayout> describe_pixels(const QnBmpInfoHeader& info) {
  const uint32_t bytes_per_pixel = info.biBitCount / 8u;
  const auto stride = stride_for(info.biWidth, bytes_per_pixel);
  const auto working_stride = stride_for(info.biWidth, 4);
  if (!stride || !working_stride || info.biHeight <= 0 || info.biWidth == 0 || bytes_per_pixel == 0)
    return std::nullopt;
  const uint64_t height = static_cast<uint64_t>(info.biHeight);
  const uint64_t source_bytes = height * *stride;
  const uint64_t working_bytes = height * *working_stride;
  if (source_bytes > kMaxBufferBytes || working_bytes > kMaxBufferBytes) return std::nullopt;
  return PixelLayout{bytes_per_pixel, *stride, static_cast<uint32_t>(source_bytes),
                     static_cast<uint32_t>(working_bytes)};
}

}  // namespace qnutil::raster
