// Builds BMP file images byte by byte and decodes 24-bit ones, so that the
// tests state file contents exactly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace raster_test {

// Little-endian integers of `count` bytes.
inline void put(std::string& out, uint32_t value, int count = 4) {
  for (int i = 0; i < count; ++i) out += static_cast<char>((value >> (8 * i)) & 255);
}

inline uint32_t get(const std::string& bytes, size_t at, int count = 4) {
  uint32_t value = 0;
  for (int i = count - 1; i >= 0; --i) value = value << 8 | static_cast<uint8_t>(bytes[at + i]);
  return value;
}

inline uint32_t stride_of(int width, int bit_count) {
  return (static_cast<uint32_t>(width) * (bit_count / 8) + 3) & ~3u;
}

struct BmpFields {
  int width = 1, height = 1;
  uint16_t bit_count = 24;
  uint32_t clr_used = 0;
  std::vector<uint32_t> palette = {};  // entries as words 0x00RRGGBB
  std::string pixels = {};             // raw rows as stored (bottom-up, padded)
  uint32_t off_bits = 0;               // 0: 54 + palette bytes
  uint32_t size_image = 0;
  uint16_t reserved1 = 0, reserved2 = 0;
  int32_t x_pels = 2835;
};

inline std::string info_header(const BmpFields& f) {
  std::string out;
  for (uint32_t v : {40u, uint32_t(f.width), uint32_t(f.height), 1u | uint32_t(f.bit_count) << 16,
                     0u, f.size_image, uint32_t(f.x_pels), 2835u, f.clr_used, 0u})
    put(out, v);
  return out;
}

inline std::string bmp_file(const BmpFields& f) {
  std::string palette, out = "BM";
  for (uint32_t entry : f.palette) put(palette, entry);
  put(out, static_cast<uint32_t>(54 + palette.size() + f.pixels.size()));
  put(out, f.reserved1 | uint32_t(f.reserved2) << 16);
  put(out, f.off_bits ? f.off_bits : static_cast<uint32_t>(54 + palette.size()));
  return out + info_header(f) + palette + f.pixels;
}

// Rows of working-format words (bottom-up) as 24-bit file rows.
inline std::string rows_24bit(const std::vector<uint32_t>& words, int width, int height) {
  std::string out;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) put(out, words[size_t(y) * width + x], 3);
    out.append(stride_of(width, 24) - static_cast<uint32_t>(width) * 3, '\0');
  }
  return out;
}

// Pixels of a 24-bit file as words, bottom-up; empty when it is no such file.
inline std::vector<uint32_t> decode_24bit(const std::string& file) {
  if (file.size() < 54 || get(file, 28, 2) != 24) return {};
  const int width = static_cast<int>(get(file, 18)), height = static_cast<int>(get(file, 22));
  const size_t stride = stride_of(width, 24), offset = get(file, 10);
  if (width <= 0 || height <= 0 || file.size() < offset + stride * height) return {};
  std::vector<uint32_t> words;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) words.push_back(get(file, offset + y * stride + x * 3, 3));
  return words;
}

// A reproducible pseudo-random pattern of working-format words.
inline std::vector<uint32_t> pattern_words(size_t count, uint32_t seed) {
  std::vector<uint32_t> words(count);
  uint32_t state = seed * 2654435761u + 1;
  for (auto& word : words) {
    state = state * 1664525u + 1013904223u;
    word = state ^ (state >> 13);
  }
  return words;
}

}  // namespace raster_test
