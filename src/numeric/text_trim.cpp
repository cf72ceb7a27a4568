// Trimming in place. White space is what the host's string class took for
// it: the single-byte blanks, tabs and line ends of the "C" locale (0x09 to
// 0x0D and 0x20). The class tested only the first byte of each character,
// so double-byte characters, full-width spaces included, are never trimmed.
// The bytes freed at the end of the original text become terminators.
#include <cstring>

#include "numeric/multibyte_text.h"
#include "qnutil/numeric.h"

namespace {

bool is_white(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

char* trim(char* s, bool trailing) {
  if (!s) return s;
  const char* begin = s;
  while (is_white(*begin)) ++begin;
  const char* const end = begin + std::strlen(begin);
  const char* kept_end = end;
  if (trailing) {
    kept_end = begin;
    for (const char* p = begin; p != end;) {
      const std::size_t length = qnutil::numeric::character_length(p);
      if (!is_white(*p)) kept_end = p + length;
      p += length;
    }
  }
  const auto kept = static_cast<std::size_t>(kept_end - begin);
  std::memmove(s, begin, kept);
  std::memset(s + kept, 0, static_cast<std::size_t>(end - s) - kept);
  return s;
}

}  // namespace

extern "C" QNUTIL_API char* QNUTIL_CALL QnUtil_StrLTrim(char* s) { return trim(s, false); }

// Trims the start, not the end: the host's callers rely on this behaviour
// and use QnUtil_StrTrim where the end must go too.
extern "C" QNUTIL_API char* QNUTIL_CALL QnUtil_StrRTrim(char* s) { return trim(s, false); }

extern "C" QNUTIL_API char* QNUTIL_CALL QnUtil_StrTrim(char* s) { return trim(s, true); }
