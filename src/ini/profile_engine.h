// The library's own implementation of the Windows private-profile
// functions, with the same results (see ini_text.h, profile_query.h and
// profile_edit.h for the rules). POSIX builds use it as their profile
// functions; it is portable so that Windows builds can compare it with the
// system's own.
//
// Parsed files are kept in a small cache and re-read only when their stamp
// (size, time of last write, identity) changes, so repeated reads of one
// file cost a lookup. Writes replace the file atomically. All calls are
// serialised by one lock, as the system serialises its profile access.
#pragma once

#include <cstdint>

namespace qnutil::ini {

// GetPrivateProfileStringA.
std::uint32_t profile_get_string(const char* section, const char* key, const char* fallback,
                                 char* buffer, std::uint32_t size, const char* file);

// GetPrivateProfileIntA.
std::uint32_t profile_get_int(const char* section, const char* key, int fallback, const char* file);

// WritePrivateProfileStringA: a null value deletes the key, a null key the
// section; all three null drop the cached copy of `file` and return false.
bool profile_write_string(const char* section, const char* key, const char* value,
                          const char* file);

}  // namespace qnutil::ini
