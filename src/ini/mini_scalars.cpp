// Single values through a mini handle: integers, doubles and strings.
#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "frame/export_guard.h"
#include "ini/ini_access.h"
#include "ini/multibyte_copy.h"

using qnutil::frame::guard_export;

namespace {

bool is_missing(const std::string& value) { return value == qnutil::ini::kMissingMarker; }

// strtol as a 32-bit long has it on every target: out-of-range values
// saturate at the 32-bit limits.
long to_long32(const char* text) {
  const long long value = std::strtoll(text, nullptr, 10);
  return static_cast<long>(value < INT32_MIN ? INT32_MIN : value > INT32_MAX ? INT32_MAX : value);
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_long(MiniHandle handle, const char* section,
                                                     const char* key, long* out) {
  if (!handle || !section || !key || !out) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    const std::string value =
        qnutil::ini::read_value_or_marker(qnutil_mini_path(handle), section, key);
    if (is_missing(value)) return QNUTIL_FAILED;
    *out = to_long32(value.c_str());
    return QNUTIL_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_double(MiniHandle handle, const char* section,
                                                       const char* key, double* out) {
  if (!handle || !section || !key || !out) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    const double value = qnutil_ini_read_double(qnutil_mini_path(handle), section, key);
    if (value == HUGE_VAL) return QNUTIL_FAILED;
    *out = value;
    return QNUTIL_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_string(MiniHandle handle, const char* section,
                                                       const char* key, char* buf,
                                                       unsigned int* len) {
  if (!handle || !section || !key || !buf || !len) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    const std::string value =
        qnutil::ini::read_value_or_marker(qnutil_mini_path(handle), section, key);
    if (is_missing(value)) return QNUTIL_FAILED;
    if (value.size() >= *len) {
      qnutil::ini::copy_multibyte_bytes(buf, value.c_str(), *len);
      buf[*len] = '\0';
    } else {
      std::memcpy(buf, value.c_str(), value.size() + 1);
      *len = static_cast<unsigned int>(value.size());
    }
    return QNUTIL_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_long(MiniHandle handle, const char* section,
                                                      const char* key, long value) {
  if (!handle || !section || !key) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    return qnutil_ini_write_int(qnutil_mini_path(handle), section, key, static_cast<int>(value))
               ? QNUTIL_OK
               : QNUTIL_FAILED;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_double(MiniHandle handle, const char* section,
                                                        const char* key, double value) {
  if (!handle || !section || !key) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    return qnutil_ini_write_double(qnutil_mini_path(handle), section, key, value) ? QNUTIL_OK
                                                                                  : QNUTIL_FAILED;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_string(MiniHandle handle, const char* section,
                                                        const char* key, const char* value) {
  if (!handle || !section || !key || !value) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    return qnutil_ini_write_string(qnutil_mini_path(handle), section, key, value) ? QNUTIL_OK
                                                                                  : QNUTIL_FAILED;
  });
}
