#include "ini/profile_access.h"

#include "ini/profile_engine.h"

namespace qnutil::ini {

std::uint32_t read_profile_string(const char* section, const char* key, const char* fallback,
                                  char* buffer, std::uint32_t size, const char* file) {
  return profile_get_string(section, key, fallback, buffer, size, file);
}

std::uint32_t read_profile_int(const char* section, const char* key, int fallback,
                               const char* file) {
  return profile_get_int(section, key, fallback, file);
}

bool write_profile_string(const char* section, const char* key, const char* value,
                          const char* file) {
  return profile_write_string(section, key, value, file);
}

void flush_profile_cache(const char* file) {
  profile_write_string(nullptr, nullptr, nullptr, file);
}

}  // namespace qnutil::ini
