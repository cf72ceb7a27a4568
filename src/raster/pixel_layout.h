// Size rules of pixel buffers, shared by every loader and by Create.
//
// A BMP header is trusted for its meaning but never for its sizes: a
// negative height, a row or buffer size that does not fit 32 bits or the
// working buffer's limit describes no image the engine can hold, and the
// loaders then leave the object empty instead of allocating.
#pragma once

#include <cstdint>
#include <optional>

#include "qnutil/raster.h"

namespace qnutil::raster {

// bfSize = buffer size + 54 is handed out as a signed 32-bit value (Create's
// result), which bounds every buffer the engine makes.
inline constexpr uint32_t kMaxBufferBytes = 0x7FFFFFFFu - 54u;

// Stride rule of every loader: width × (bits / 8) rounded up to a multiple
// of 4 bytes. Empty when the width is negative or the row would not fit.
std::optional<uint32_t> stride_for(int32_t width, uint32_t bytes_per_pixel);

struct PixelLayout {
  uint32_t bytes_per_pixel;  // of the source rows
  uint32_t stride;           // of the source rows
  uint32_t source_bytes;     // height × stride
  uint32_t working_bytes;    // height × width × 4
};

// Layout of the pixels an info header describes, for depths of 8 bits and
// more; empty when the image is zero-area or impossible to hold.
std::optional<PixelLayout> describe_pixels(const QnBmpInfoHeader& info);

}  // namespace qnutil::raster
