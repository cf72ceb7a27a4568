#include "ini/multibyte_copy.h"

#include <cstring>

#include "platform/codepage.h"

namespace qnutil::ini {

std::size_t character_length(const char* text) {
  return platform::is_lead_byte(static_cast<unsigned char>(text[0])) && text[1] != '\0' ? 2 : 1;
}

void copy_multibyte_bytes(char* target, const char* source, std::size_t count) {
  std::size_t done = 0;
  while (done < count && source[done] != '\0') {
    const std::size_t length = character_length(source + done);
    if (done + length > count) break;
    std::memcpy(target + done, source + done, length);
    done += length;
  }
  std::memset(target + done, 0, count - done);
}

}  // namespace qnutil::ini
