// Helpers of the engine tests: images made from and read back as words.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include "raster/qn_bitmap.h"

namespace raster_test {

// Buffer-order words (bottom-up rows) of a working-format image.
inline std::vector<uint32_t> words_of(const CQnBitmap& image) {
  std::vector<uint32_t> words(image.BufferSize() / 4);
  if (!words.empty()) std::memcpy(words.data(), image.Pixels(), image.BufferSize());
  return words;
}

inline void set_words(CQnBitmap& image, int width, int height, const std::vector<uint32_t>& words) {
  image.Create(width, height);
  std::memcpy(image.Pixels(), words.data(), words.size() * 4);
}

// Word at column x of picture row y (0 at the top).
inline uint32_t picture_pixel(const CQnBitmap& image, int x, int y) {
  return image.PixelAt(x, image.Height() - 1 - y);
}

}  // namespace raster_test
