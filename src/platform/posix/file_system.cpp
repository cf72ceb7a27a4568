#include "platform/file_system.h"

#include <unistd.h>

#include <cstdlib>

namespace qnutil::platform {

const char kTextLineEnd[] = "\n";

std::FILE* open_stream(const char* path, const char* mode) {
  std::string posix_mode;
  for (const char* p = mode; *p != '\0'; ++p) {
    if (*p != 't') posix_mode.push_back(*p);
  }
  return std::fopen(path, posix_mode.c_str());
}

bool path_exists(const char* path) { return access(path, F_OK) == 0; }

bool current_folder(std::string& folder) {
  std::string buffer(4096, '\0');
  if (getcwd(buffer.data(), buffer.size()) == nullptr) return false;
  folder = buffer.c_str();
  return true;
}

bool environment_variable(const char* name, std::string& value) {
  const char* found = std::getenv(name);
  if (found == nullptr) return false;
  value = found;
  return true;
}

}  // namespace qnutil::platform
