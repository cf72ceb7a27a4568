// The write side of the Windows profile functions as a text edit: only the
// affected lines change, everything else (comments, blank lines, odd
// spacing, other line breaks, NUL bytes) stays byte for byte.
#pragma once

#include <string>
#include <string_view>

#include "ini/ini_text.h"

namespace qnutil::ini {

// The file's bytes after WritePrivateProfileStringA(section, key, value)
// on `text` (an empty text for a file that does not exist yet):
//  - key and value given: the first such key's value is replaced in place
//    (the existing spelling of key and section stays); a new key goes
//    right after the last entry of the section, before trailing comments;
//    a new section is appended at the end;
//  - value null: the first such key line is removed;
//  - key null: the section's header and entry lines are removed, its
//    comments and blank lines stay.
// Names lose leading and trailing spaces; the value is written verbatim.
std::string edit_profile(const IniText& text, std::string_view section, const char* key,
                         const char* value);

}  // namespace qnutil::ini
