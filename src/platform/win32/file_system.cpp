#include "platform/file_system.h"

#include <direct.h>
#include <io.h>
#include <stdlib.h>
#include <windows.h>

namespace qnutil::platform {

const char kTextLineEnd[] = "\r\n";

std::FILE* open_stream(const char* path, const char* mode) { return std::fopen(path, mode); }

bool path_exists(const char* path) { return _access(path, 0) == 0; }

bool current_folder(std::string& folder) {
  char buffer[_MAX_PATH];
  if (_getcwd(buffer, sizeof buffer) == nullptr) return false;
  folder = buffer;
  return true;
}

// Asks the process environment rather than a run-time's copy of it, so a
// variable the host set with either mechanism is seen.
bool environment_variable(const char* name, std::string& value) {
  const DWORD needed = GetEnvironmentVariableA(name, nullptr, 0);
  if (needed == 0) return false;
  std::string buffer(needed, '\0');
  const DWORD length = GetEnvironmentVariableA(name, buffer.data(), needed);
  if (length == 0 || length >= needed) return false;
  value.assign(buffer.data(), length);
  return true;
}

}  // namespace qnutil::platform
