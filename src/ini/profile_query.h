// The read side of the Windows profile functions, applied to an indexed
// file: value lookup with quote stripping and default text, the caller's
// buffer contract (truncation, list termination) and integer parsing.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "ini/ini_text.h"

namespace qnutil::ini {

// The value of `key` in `section` as the profile functions return it
// (quotes stripped), or nothing when there is no such key. `text` may be
// null (no readable file).
std::optional<std::string_view> find_profile_value(const IniText* text, std::string_view section,
                                                   std::string_view key);

// GetPrivateProfileStringA: a null `section` lists the section names, a
// null `key` the key names of `section`; `size` counts the terminator.
// Returns the number of bytes stored before the (last) terminator.
std::uint32_t query_profile_string(const IniText* text, const char* section, const char* key,
                                   const char* fallback, char* buffer, std::uint32_t size);

// GetPrivateProfileIntA: the value's leading decimal integer, wrapping
// modulo 2^32; `fallback` when the key is missing or its value empty.
std::uint32_t query_profile_int(const IniText* text, const char* section, const char* key,
                                int fallback);

// The leading integer of `text` as GetPrivateProfileIntA parses it.
std::uint32_t parse_profile_int(std::string_view text);

}  // namespace qnutil::ini
