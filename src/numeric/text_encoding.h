// Conversions between the ANSI code page, UTF-8 and UTF-16 exactly as the
// platform performs them: Windows' own functions on Windows
// (text_encoding_win32.cpp), Windows-1252 and the equivalent UTF-8 codec
// elsewhere (text_encoding.cpp).
#pragma once

#include <string>
#include <string_view>

namespace qnutil::numeric {

// UTF-8 to UTF-16; ill-formed input yields U+FFFD, never an error.
std::u16string utf8_to_utf16(std::string_view utf8);

// Text in the process's ANSI code page to UTF-16.
std::u16string ansi_to_utf16(std::string_view text);

// UTF-16 to UTF-8; unpaired surrogates yield U+FFFD.
std::string utf16_to_utf8(std::u16string_view utf16);

}  // namespace qnutil::numeric
