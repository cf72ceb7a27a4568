#include "platform/guid_text.h"

#include <cstdio>
#include <cstring>

namespace qnutil::platform {
namespace {

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Reads `digits` hex digits at `text`; false on any other character.
bool read_hex(const char* text, int digits, std::uint32_t& value) {
  value = 0;
  for (int i = 0; i < digits; ++i) {
    const int digit = hex_value(text[i]);
    if (digit < 0) return false;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return true;
}

}  // namespace

bool guid_to_text(const GuidBytes& guid, char (&text)[kGuidTextSize]) {
  const std::uint8_t* d = guid.data4;
  std::snprintf(text, kGuidTextSize, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(guid.data1), guid.data2, guid.data3, d[0], d[1], d[2], d[3],
                d[4], d[5], d[6], d[7]);
  return true;
}

bool guid_from_text(const char* text, GuidBytes& guid) {
  if (*text == '\0') {
    guid = GuidBytes{};
    return true;
  }
  if (std::strlen(text) != kGuidTextSize - 1 || text[0] != '{' || text[9] != '-' ||
      text[14] != '-' || text[19] != '-' || text[24] != '-' || text[37] != '}') {
    return false;
  }
  GuidBytes parsed{};
  std::uint32_t part = 0;
  if (!read_hex(text + 1, 8, parsed.data1)) return false;
  if (!read_hex(text + 10, 4, part)) return false;
  parsed.data2 = static_cast<std::uint16_t>(part);
  if (!read_hex(text + 15, 4, part)) return false;
  parsed.data3 = static_cast<std::uint16_t>(part);
  static constexpr int kByteOffsets[8] = {20, 22, 25, 27, 29, 31, 33, 35};
  for (int i = 0; i < 8; ++i) {
    if (!read_hex(text + kByteOffsets[i], 2, part)) return false;
    parsed.data4[i] = static_cast<std::uint8_t>(part);
  }
  guid = parsed;
  return true;
}

}  // namespace qnutil::platform
