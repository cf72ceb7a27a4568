#include "platform/path_syntax.h"

#include <mbstring.h>

namespace qnutil::platform {

char path_separator() { return '\\'; }

bool is_path_separator(char c) { return c == '\\' || c == '/'; }

// Like the run-time's path splitter: any first byte followed by a colon.
std::size_t drive_prefix_length(const char* path) {
  return path[0] != '\0' && path[1] == ':' ? 2 : 0;
}

void fold_path_case(char* path) { _mbslwr(reinterpret_cast<unsigned char*>(path)); }

const char* system_drive_root() { return "C:\\"; }

}  // namespace qnutil::platform
