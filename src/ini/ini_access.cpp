#include "ini/ini_access.h"

#include "platform/profile.h"

namespace qnutil::ini {

std::string read_value_or_marker(const char* file, const char* section, const char* key) {
  char buffer[kValueBufferSize];
  const auto length =
      platform::read_profile_string(section, key, kMissingMarker, buffer, sizeof buffer, file);
  return length == 0 ? std::string() : std::string(buffer);
}

}  // namespace qnutil::ini
