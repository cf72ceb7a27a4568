#include "platform/log_file.h"

#include <unistd.h>

namespace qnutil::platform {

std::FILE* open_committed_log(const char* name, bool append) {
  return std::fopen(name, append ? "a" : "w");
}

void flush_committed_log(std::FILE* file) {
  std::fflush(file);
  fsync(fileno(file));
}

}  // namespace qnutil::platform
