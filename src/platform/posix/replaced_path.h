// Where a file that is replaced really lives: a symbolic link is followed,
// so that the file it names is replaced (and locked) and the link stays.
#pragma once

#include <limits.h>
#include <stdlib.h>

#include <string>

namespace qnutil::platform::posix {

inline std::string resolved_target(const char* path) {
  char resolved[PATH_MAX];
  return ::realpath(path, resolved) ? std::string(resolved) : std::string(path);
}

inline std::string folder_of(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace qnutil::platform::posix
