// How the platform spells paths: separators, drive prefixes, the root of
// the system drive and whether names are compared case-blind.
#pragma once

#include <cstddef>

namespace qnutil::platform {

// The separator the library writes when it joins path pieces.
char path_separator();

// True for every byte the platform accepts as a separator ('\\' and '/' on
// Windows, '/' elsewhere).
bool is_path_separator(char c);

// Length of the drive prefix ("C:") at the start of `path`; 0 where the
// platform has no drive letters.
std::size_t drive_prefix_length(const char* path);

// Folds a composed path in place to the spelling the library hands out:
// lower case on Windows (multibyte-aware, so trail bytes of double-byte
// characters stay as they are); unchanged on POSIX, whose file names are
// case-sensitive.
void fold_path_case(char* path);

// Root folder of the system drive, with its separator ("C:\\" or "/").
const char* system_drive_root();

}  // namespace qnutil::platform
