// Number lists through a mini handle.
#include <string>

#include "frame/export_guard.h"
#include "ini/ini_access.h"
#include "ini/number_list.h"

using qnutil::frame::guard_export;

extern "C" QNUTIL_API int QNUTIL_CALL mini_read_doubles(MiniHandle handle, const char* section,
                                                        const char* key, double* out, int* count) {
  // A capacity below 1 would have the first number stored out of bounds.
  if (!handle || !section || !key || !out || !count || *count < 1) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    const std::string value =
        qnutil::ini::read_value_or_marker(qnutil_mini_path(handle), section, key);
    if (value.empty() || value == qnutil::ini::kMissingMarker) return QNUTIL_FAILED;
    const int stored = qnutil::ini::parse_number_list(value.c_str(), out, *count);
    if (stored < 0) return QNUTIL_FAILED;
    *count = stored;
    return QNUTIL_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_write_doubles(MiniHandle handle, const char* section,
                                                         const char* key, const double* values,
                                                         int n) {
  if (!handle || !section || !key || (!values && n > 0)) return QNUTIL_FAILED;
  return guard_export(QNUTIL_FAILED, [&] {
    const std::string list = qnutil::ini::format_number_list(values, n);
    return qnutil_ini_write_string(qnutil_mini_path(handle), section, key, list.c_str())
               ? QNUTIL_OK
               : QNUTIL_FAILED;
  });
}
