#include "ini/multibyte_copy.h"

#include <cstring>

#include "numeric/multibyte_text.h"

namespace qnutil::ini {

using numeric::character_length;

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
