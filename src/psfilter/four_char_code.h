// Four-character codes of the filter plug-in interface. They are compared as
// 32-bit values whose bytes spell the code from the most significant byte
// down, so in a little-endian resource their bytes appear reversed.
#pragma once

#include <cstdint>

namespace qnutil::psfilter {

constexpr std::uint32_t four_char_code(const char (&code)[5]) {
  return (std::uint32_t{static_cast<unsigned char>(code[0])} << 24) |
         (std::uint32_t{static_cast<unsigned char>(code[1])} << 16) |
         (std::uint32_t{static_cast<unsigned char>(code[2])} << 8) |
         std::uint32_t{static_cast<unsigned char>(code[3])};
}

inline constexpr std::uint32_t kKindKey = four_char_code("kind");
inline constexpr std::uint32_t kFilterKind = four_char_code("8BFM");
inline constexpr std::uint32_t kVersionKey = four_char_code("vers");
inline constexpr std::uint32_t kCategoryKey = four_char_code("catg");
inline constexpr std::uint32_t kNameKey = four_char_code("name");
// Entry-point names of 32-bit and 64-bit x86 Windows modules.
inline constexpr std::uint32_t kEntryKeyX86 = four_char_code("wx86");
inline constexpr std::uint32_t kEntryKeyX64 = four_char_code("8664");

}  // namespace qnutil::psfilter
