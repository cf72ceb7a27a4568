#include "platform/path_syntax.h"

namespace qnutil::platform {

char path_separator() { return '/'; }

bool is_path_separator(char c) { return c == '/'; }

std::size_t drive_prefix_length(const char*) { return 0; }

void fold_path_case(char*) {}

const char* system_drive_root() { return "/"; }

}  // namespace qnutil::platform
