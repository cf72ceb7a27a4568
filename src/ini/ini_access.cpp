#include "ini/ini_access.h"

#include <cstdlib>
#include <limits>

#include "frame/text_format.h"
#include "ini/profile_access.h"

namespace qnutil::ini {

std::string read_value_or_marker(const char* file, const char* section, const char* key) {
  char buffer[kValueBufferSize];
  qnutil_ini_read_string(file, section, key, buffer);
  return buffer;
}

}  // namespace qnutil::ini

using qnutil::frame::format_text;
using qnutil::ini::kMissingMarker;

extern "C" unsigned qnutil_ini_read_string(const char* file, const char* section, const char* key,
                                           char* value) {
  const auto length = qnutil::ini::read_profile_string(section, key, kMissingMarker, value,
                                                       QNUTIL_INI_VALUE_BUFFER_SIZE, file);
  // The platform reports 0 characters for a key present with an empty value.
  if (length == 0) value[0] = '\0';
  return static_cast<unsigned>(length);
}

extern "C" int qnutil_ini_read_int(const char* file, const char* section, const char* key) {
  return static_cast<int>(qnutil::ini::read_profile_int(section, key, 0, file));
}

extern "C" double qnutil_ini_read_double(const char* file, const char* section, const char* key) {
  const std::string value = qnutil::ini::read_value_or_marker(file, section, key);
  if (value.empty() || value == kMissingMarker) return std::numeric_limits<double>::infinity();
  return std::strtod(value.c_str(), nullptr);
}

extern "C" int qnutil_ini_write_string(const char* file, const char* section, const char* key,
                                       const char* value) {
  return qnutil::ini::write_profile_string(section, key, value, file) ? 1 : 0;
}

extern "C" int qnutil_ini_write_int(const char* file, const char* section, const char* key,
                                    int value) {
  return qnutil_ini_write_string(file, section, key, format_text("%d", value).c_str());
}

extern "C" int qnutil_ini_write_double(const char* file, const char* section, const char* key,
                                       double value) {
  return qnutil_ini_write_string(file, section, key, format_text("%lg", value).c_str());
}
