#include "ini/profile_access.h"

#include <windows.h>

namespace qnutil::ini {

std::uint32_t read_profile_string(const char* section, const char* key, const char* fallback,
                                  char* buffer, std::uint32_t size, const char* file) {
  return GetPrivateProfileStringA(section, key, fallback, buffer, size, file);
}

std::uint32_t read_profile_int(const char* section, const char* key, int fallback,
                               const char* file) {
  return GetPrivateProfileIntA(section, key, fallback, file);
}

bool write_profile_string(const char* section, const char* key, const char* value,
                          const char* file) {
  return WritePrivateProfileStringA(section, key, value, file) != FALSE;
}

void flush_profile_cache(const char* file) {
  WritePrivateProfileStringA(nullptr, nullptr, nullptr, file);
}

}  // namespace qnutil::ini
