// Position searches. Despite the "I" in their names they compare case
// sensitively: the letter stands for the index they return. Matches start
// only at character boundaries, so a trail byte of a double-byte character
// is never taken for a character of its own.
#include <cstring>

#include "numeric/multibyte_text.h"
#include "qnutil/numeric.h"

using qnutil::numeric::character_length;

// The byte is compared unsigned, so characters above 0x7F are found too.
// Searching for '\0' finds the terminator, as strchr does.
extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_StrIChr(const char* s, char c) {
  if (!s) return -1;
  const char* p = s;
  for (; *p != '\0'; p += character_length(p)) {
    if (*p == c && character_length(p) == 1) return static_cast<int>(p - s);
  }
  return c == '\0' ? static_cast<int>(p - s) : -1;
}

// An empty `sub` is found at position 0.
extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_StrIPos(const char* s, const char* sub) {
  if (!s || !sub) return -1;
  const std::size_t length = std::strlen(sub);
  const char* p = s;
  for (; *p != '\0'; p += character_length(p)) {
    if (std::strncmp(p, sub, length) == 0) return static_cast<int>(p - s);
  }
  return length == 0 ? 0 : -1;
}
