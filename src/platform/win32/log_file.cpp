#include "platform/log_file.h"

namespace qnutil::platform {

std::FILE* open_committed_log(const char* name, bool append) {
  // "c" is msvcrt's commit flag: fflush also writes through to the disk.
  return std::fopen(name, append ? "ac" : "wc");
}

void flush_committed_log(std::FILE* file) { std::fflush(file); }

}  // namespace qnutil::platform
