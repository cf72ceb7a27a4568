// The private-profile (INI file) functions every INI user of the library
// calls: the system's own on Windows (profile_access_win32.cpp), the
// library's engine with the same results elsewhere (profile_access.cpp).
#pragma once

#include <cstdint>

namespace qnutil::ini {

// Reads one value into `buffer` (`size` bytes with the terminator). A
// missing key, section or file gives `fallback` (trailing spaces removed);
// a null `section` lists the section names and a null `key` the section's
// key names, each terminated, the list ending in an extra terminator.
// Returns the number of bytes stored before the final terminator.
std::uint32_t read_profile_string(const char* section, const char* key, const char* fallback,
                                  char* buffer, std::uint32_t size, const char* file);

// Reads the leading decimal integer of a value; `fallback` when the value
// is missing or empty.
std::uint32_t read_profile_int(const char* section, const char* key, int fallback,
                               const char* file);

// Writes `value` under `key` in `section`, creating the file, section or
// key as needed; a null `value` deletes the key, a null `key` the section.
// True on success.
bool write_profile_string(const char* section, const char* key, const char* value,
                          const char* file);

// Drops any cached copy of `file`, so that the next call reads the disk.
void flush_profile_cache(const char* file);

}  // namespace qnutil::ini
