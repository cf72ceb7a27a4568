// The process's ANSI code page as far as byte-wise text scanning needs it.
#pragma once

namespace qnutil::platform {

// True when `byte` starts a double-byte character in the ANSI code page.
// Windows asks the system (Shift-JIS, GBK, Big5, ... have lead bytes);
// POSIX builds use Windows-1252, which has none.
bool is_lead_byte(unsigned char byte);

}  // namespace qnutil::platform
