// POSIX has no conversion that matches Windows' byte for byte, so the
// library's own codec and Windows-1252 table stand in for it.
#include "numeric/text_encoding.h"

#include "numeric/utf8_codec.h"
#include "numeric/windows_1252.h"

namespace qnutil::numeric {

std::u16string utf8_to_utf16(std::string_view utf8) { return codec_utf8_to_utf16(utf8); }

std::u16string ansi_to_utf16(std::string_view text) { return windows_1252_to_utf16(text); }

std::string utf16_to_utf8(std::u16string_view utf16) { return codec_utf16_to_utf8(utf16); }

}  // namespace qnutil::numeric
