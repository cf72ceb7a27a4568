// Builds BMP file images byte by byte and decodes 24-bit ones, so that the
// tests state file contents exactly.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace raster_test {

inline void put16(std::string& out, uint16_t value) {
  out += static_cast<char>(value & 255);
  out += static_cast<char>(value >> 8);
}

inline void put32(std::string& out, uint32_t value) {
  for (int i = 0; i < 4; ++i) out += static_cast<char>((value >> (8 * i)) & 255);
}

inline uint32_t get32(const std::string& bytes, size_t at) {
  uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<uint8_t>(bytes[at + i]);
  return value;
}

inline uint32_t stride_of(int width, int bit_count) { return (static_cast<uint32_t>(width) * (bit_count / 8) + 3) & ~3u; }

struct BmpFields {
  int width = 1;
  int height = 1;
  uint16_t bit_count = 24;
  uint32_t clr_used = 0;
  std::vector<uint32_t> palette = {};  // entries as words 0x00RRGGBB
  std::string pixels = {};           // raw rows as stored (bottom-up, padded)
  uint32_t off_bits = 0;          // 0: 54 + palette bytes
  uint32_t size_image = 0;
  uint16_t reserved1 = 0;
  uint16_t reserved2 = 0;
  int32_t x_pels = 2835;
};

inline std::string info_header(const BmpFields& fields) {
  std::string out;
  for (uint32_t v : {40u, uint32_t(fields.width), uint32_t(fields.height)}) put32(out, v);
  put16(out, 1);
  put16(out, fields.bit_count);
  for (uint32_t v : {0u, fields.size_image, uint32_t(fields.x_pels), 2835u, fields.clr_used, 0u}) put32(out, v);
  return out;
}

inline std::string bmp_file(const BmpFields& fields) {
  std::string palette, out = "BM";
  for (uint32_t entry : fields.palette) put32(palette, entry);
  put32(out, static_cast<uint32_t>(54 + palette.size() + fields.pixels.size()));
  put16(out, fields.reserved1);
  put16(out, fields.reserved2);
  put32(out, fields.off_bits ? fields.off_bits : static_cast<uint32_t>(54 + palette.size()));
  return out + info_header(fields) + palette + fields.pixels;
}

// Rows of working-format words (bottom-up) as 24-bit file rows.
inline std::string rows_24bit(const std::vector<uint32_t>& words, int width, int height) {
  std::string out;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      for (int c = 0; c < 3; ++c) out += static_cast<char>((words[size_t(y) * width + x] >> (8 * c)) & 255);
    out.append(stride_of(width, 24) - static_cast<uint32_t>(width) * 3, '\0');
  }
  return out;
}

// Pixels of a 24-bit file as words, bottom-up; empty when it is no such file.
inline std::vector<uint32_t> decode_24bit(const std::string& file) {
  if (file.size() < 54 || (get32(file, 28) & 0xFFFF) != 24) return {};
  const int width = static_cast<int>(get32(file, 18)), height = static_cast<int>(get32(file, 22));
  const uint32_t stride = stride_of(width, 24);
  const size_t offset = get32(file, 10);
  if (width <= 0 || height <= 0 || file.size() < offset + size_t(stride) * height) return {};
  std::vector<uint32_t> words;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const size_t at = offset + size_t(y) * stride + size_t(x) * 3;
      words.push_back(static_cast<uint8_t>(file[at]) | static_cast<uint8_t>(file[at + 1]) << 8 |
                      static_cast<uint32_t>(static_cast<uint8_t>(file[at + 2])) << 16);
    }
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
