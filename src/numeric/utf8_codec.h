// UTF-8 to and from UTF-16 with the substitutions Windows' conversion
// functions make (no flags): every maximal ill-formed subsequence of the
// UTF-8 input, and every unpaired surrogate of the UTF-16 input, becomes
// one U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace qnutil::numeric {

std::u16string utf8_to_utf16(std::string_view utf8);
std::string utf16_to_utf8(std::u16string_view utf16);

}  // namespace qnutil::numeric
