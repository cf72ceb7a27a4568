#include "platform/system_info.h"

#include <sys/utsname.h>

#include <cstdlib>

namespace qnutil::platform {

bool os_version(unsigned& major, unsigned& minor) {
  major = minor = 0;
  utsname names{};
  if (uname(&names) != 0) return false;
  char* end = nullptr;
  major = static_cast<unsigned>(std::strtoul(names.release, &end, 10));
  if (*end == '.') minor = static_cast<unsigned>(std::strtoul(end + 1, nullptr, 10));
  return true;
}

BaseFolder program_data_base_folder(unsigned, unsigned, std::string&) { return BaseFolder::caller; }

bool roaming_app_data_folder(std::string& folder) {
  // XDG base directories: a relative $XDG_DATA_HOME is invalid and ignored.
  const char* data_home = std::getenv("XDG_DATA_HOME");
  if (data_home && data_home[0] == '/') {
    folder = data_home;
    return true;
  }
  const char* home = std::getenv("HOME");
  if (!home || !*home) return false;
  folder = home;
  folder += "/.local/share";
  return true;
}

bool read_install_location(const char*, std::string&) { return false; }

}  // namespace qnutil::platform
