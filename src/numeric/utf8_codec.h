// UTF-8 to and from UTF-16 with the substitutions Windows' conversion
// functions make without flags when they convert a zero-terminated text:
// ill-formed UTF-8 sequences and unpaired surrogates become U+FFFD, one for
// each sequence as Windows delimits it.
#pragma once

#include <string>
#include <string_view>

namespace qnutil::numeric {

std::u16string codec_utf8_to_utf16(std::string_view utf8);
std::string codec_utf16_to_utf8(std::u16string_view utf16);

}  // namespace qnutil::numeric
