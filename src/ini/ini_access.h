// Reading single INI values the way the whole library does: through the
// platform's profile functions, with a marker default that tells a missing
// key from an empty value.
#pragma once

#include <string>

#include "ini/class_core.h"

namespace qnutil::ini {

// The default text of every string read. A value that literally holds it
// reads as missing, deliberately.
inline constexpr char kMissingMarker[] = "_TheDefault_";

// Size of the read buffer, terminator included: longer values come back
// cut to 1023 bytes.
inline constexpr unsigned kValueBufferSize = QNUTIL_INI_VALUE_BUFFER_SIZE;

// The value of `key` in `section` of `file`: "" for a key present with an
// empty value, kMissingMarker for a missing key, section or file.
std::string read_value_or_marker(const char* file, const char* section, const char* key);

}  // namespace qnutil::ini
