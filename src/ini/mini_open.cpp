// Opening and closing mini handles.
#include <optional>
#include <string>

#include "files/path_pieces.h"
#include "ini/class_core.h"
#include "platform/settings_file.h"

// The path QnUtil_Makepath composes, refused where it would be cut.
extern "C" QNUTIL_API MiniHandle QNUTIL_CALL mini_open(const char* dir, const char* name,
                                                       int mode) {
  const std::optional<std::string> path = qnutil::files::compose_whole_path("", dir, name);
  return path ? mini_open_ex(path->c_str(), mode) : nullptr;
}

extern "C" QNUTIL_API MiniHandle QNUTIL_CALL mini_open_ex(const char* path, int mode) {
  if (!path || !*path) return nullptr;
  const bool for_reading = (mode & QNUTIL_MINI_READ) != 0;
  const bool accessible =
      for_reading ? qnutil::platform::can_read_file(path) : qnutil::platform::can_write_file(path);
  if (!accessible) return nullptr;
  return qnutil_mini_create(path, for_reading ? 0u : 1u);
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_close(MiniHandle* handle) {
  if (!handle || !*handle) return 0;
  qnutil_mini_destroy(*handle);
  return 1;
}
