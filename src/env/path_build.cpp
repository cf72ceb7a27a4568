// The delimiter and building paths from components.
#include <cstdarg>
#include <cstring>
#include <string>

#include "env/delimiter.h"
#include "env/handle.h"
#include "frame/export_guard.h"

using namespace qnutil::env;

extern "C" QNUTIL_API char* QNUTIL_CALL env_set_delimiter(const char* delim) {
  thread_local char previous[256];
  qnutil::frame::guard_export_void([&] {
    const std::string old = replace_delimiter(delim);
    std::memcpy(previous, old.c_str(), old.size() + 1);
  });
  return previous;
}

namespace {

// Appends component, preceded by the separator when `separate`; false
// when the result would not fit into bufSize bytes.
bool append_component(int bufSize, char* buf, std::size_t& length, const char* component,
                      bool separate, char separator) {
  const std::size_t n = std::strlen(component);
  if (length + n + (separate ? 1 : 0) >= static_cast<std::size_t>(bufSize)) return false;
  if (separate) buf[length++] = separator;
  std::memcpy(buf + length, component, n + 1);
  length += n;
  return true;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL env_create_path(int bufSize, char* buf, const char* first,
                                                      ...) {
  if (bufSize < 1 || !buf) return ENV_TOO_SMALL;
  if (!first) return ENV_OK;
  if (std::strlen(first) > static_cast<std::size_t>(bufSize - 1)) return ENV_TOO_SMALL;
  const char separator = delimiter().first();
  std::strcpy(buf, first);
  std::size_t length = std::strlen(first);
  va_list args;
  va_start(args, first);
  int result = ENV_OK;
  while (const char* component = va_arg(args, const char*)) {
    if (!append_component(bufSize, buf, length, component, true, separator)) {
      *buf = '\0';
      result = ENV_TOO_SMALL;
      break;
    }
  }
  va_end(args);
  return result;
}

extern "C" QNUTIL_API int QNUTIL_CALL env_create_array_path(int bufSize, char* buf,
                                                            const char** parts) {
  if (bufSize < 1 || !buf) return ENV_TOO_SMALL;
  *buf = '\0';
  if (!parts) return ENV_OK;
  const char separator = delimiter().first();
  std::size_t length = 0;
  for (const char** part = parts; *part; ++part) {
    if (!append_component(bufSize, buf, length, *part, part != parts, separator)) {
      *buf = '\0';
      return ENV_TOO_SMALL;
    }
  }
  return ENV_OK;
}
