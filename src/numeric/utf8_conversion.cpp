#include <cstring>
#include <string>

#include "frame/export_guard.h"
#include "numeric/text_encoding.h"
#include "qnutil/numeric.h"

using qnutil::frame::guard_export;

// Each UTF-16 unit keeps only its low byte: U+0000 to U+00FF come out as
// ISO 8859-1 and every other character (replacement characters of
// ill-formed input and both halves of surrogate pairs included) as the low
// byte of its code. Callers depend on getting a byte for every unit.
extern "C" QNUTIL_API int QNUTIL_CALL ConvertFromUTF8(const char* utf8, char* out) {
  if (!utf8 || !out) return 0;
  return guard_export(0, [&] {
    const std::u16string wide = qnutil::numeric::utf8_to_utf16(utf8);
    if (wide.empty()) return 0;
    for (const char16_t unit : wide) *out++ = static_cast<char>(unit & 0xFF);
    *out = '\0';
    return 1;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL ConvertToUTF8(const char* text, char* out) {
  if (!text || !out) return 0;
  return guard_export(0, [&] {
    const std::string utf8 = qnutil::numeric::utf16_to_utf8(qnutil::numeric::ansi_to_utf16(text));
    if (utf8.empty()) return 0;
    std::memcpy(out, utf8.data(), utf8.size());
    out[utf8.size()] = '\0';
    return 1;
  });
}
