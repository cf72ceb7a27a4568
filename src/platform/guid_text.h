// GUIDs as text in the registry form "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}".
#pragma once

#include <cstdint>

namespace qnutil::platform {

// A GUID's 16 bytes in the platform's layout: a 32-bit and two 16-bit
// fields in native byte order, then 8 bytes.
struct GuidBytes {
  std::uint32_t data1;
  std::uint16_t data2;
  std::uint16_t data3;
  std::uint8_t data4[8];
};

inline constexpr unsigned kGuidTextSize = 39;  // 38 characters and the terminator

// The registry form with upper-case digits. False when the platform cannot
// convert.
bool guid_to_text(const GuidBytes& guid, char (&text)[kGuidTextSize]);

// Parses the registry form (digits of either case); an empty text is the
// null GUID, as the system's parser has it. False for anything else.
bool guid_from_text(const char* text, GuidBytes& guid);

}  // namespace qnutil::platform
