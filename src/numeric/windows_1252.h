// Windows-1252, the ANSI code page of POSIX builds, as the platform's own
// conversion reads it.
#pragma once

#include <string>
#include <string_view>

namespace qnutil::numeric {

// UTF-16 of `text` read as Windows-1252. The five bytes the code page leaves
// unassigned (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the C1 controls of the
// same value, as Windows' MultiByteToWideChar maps them.
std::u16string windows_1252_to_utf16(std::string_view text);

}  // namespace qnutil::numeric
