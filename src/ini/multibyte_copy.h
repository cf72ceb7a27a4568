// Byte-counted copying of ANSI text that never splits a double-byte
// character, as the C runtime's _mbsnbcpy does it.
#pragma once

#include <cstddef>

namespace qnutil::ini {

// Copies up to `count` bytes of `source` to `target`, stopping after the
// source's terminator. A double-byte character that would be cut after
// its lead byte is dropped (its lead byte becomes a terminator). The rest
// of the `count` bytes is padded with terminators; no terminator is added
// beyond `count`.
void copy_multibyte_bytes(char* target, const char* source, std::size_t count);

}  // namespace qnutil::ini
