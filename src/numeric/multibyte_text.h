// Walking 8-bit text character by character in the ANSI code page, where a
// lead byte and the byte after it form one double-byte character.
#pragma once

#include <cstddef>

#include "platform/codepage.h"

namespace qnutil::numeric {

// Bytes of the character starting at `p` (which is not the terminator). A
// lead byte right before the terminator counts alone, so that a truncated
// character never carries a walk past the end of the text.
inline std::size_t character_length(const char* p) {
  return platform::is_lead_byte(static_cast<unsigned char>(*p)) && p[1] != '\0' ? 2 : 1;
}

}  // namespace qnutil::numeric
