#include "files/config_search.h"

#include <cstdint>

#include "files/path_pieces.h"
#include "platform/file_system.h"
#include "platform/path_syntax.h"

namespace qnutil::files {
namespace {

std::string numbered_name(std::uint16_t number) {
  return number == 0 ? std::string("mb.ini") : "mb" + std::to_string(number) + ".ini";
}

bool found_in_current_folder(const std::string& name, std::string& path) {
  std::string folder;
  if (!platform::path_exists(name.c_str()) || !platform::current_folder(folder)) return false;
  path = folder + platform::path_separator() + name;
  return platform::path_exists(path.c_str());
}

bool found_at_root(const std::string& name, std::string& path) {
  path = platform::system_drive_root() + name;
  return platform::path_exists(path.c_str());
}

}  // namespace

bool find_in_mb_folder(const std::string& name, std::string& path) {
  std::string folder;
  if (!platform::environment_variable("MB", folder)) return false;
  path = compose_path("", folder.c_str(), name.c_str());
  return platform::path_exists(path.c_str());
}

std::string find_configuration_file() {
  // The counter wraps from 0 to 65535. The host guarantees one of the files
  // exists; should none, the search ends after one round of all 65536 names
  // instead of spinning forever, since a further round only repeats the
  // same look-ups, and callers then take their "not found" path.
  std::uint16_t number = 9;
  for (unsigned tried = 0; tried <= UINT16_MAX; ++tried, --number) {
    const std::string name = numbered_name(number);
    std::string path;
    if (found_in_current_folder(name, path) || find_in_mb_folder(name, path) ||
        found_at_root(name, path)) {
      return path;
    }
  }
  return {};
}

}  // namespace qnutil::files
