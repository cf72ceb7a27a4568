// Log files whose every flush reaches the disk.
#pragma once

#include <cstdio>

namespace qnutil::platform {

// Opens `name` for appending or truncating with write-through flushes
// (the C runtime's "c" commit mode on Windows).
std::FILE* open_committed_log(const char* name, bool append);

// Flushes the stream and, where the C runtime does not commit on flush by
// itself, forces the data to the disk.
void flush_committed_log(std::FILE* file);

}  // namespace qnutil::platform
