// Opening and closing mini handles.
#include "frame/export_guard.h"
#include "ini/class_core.h"
#include "platform/settings_file.h"
#include "qnutil/files.h"

extern "C" QNUTIL_API MiniHandle QNUTIL_CALL mini_open(const char* dir, const char* name, int mode) {
  char path[QNUTIL_PATH_SIZE];
  return mini_open_ex(QnUtil_Makepath(path, "", dir, name), mode);
}

extern "C" QNUTIL_API MiniHandle QNUTIL_CALL mini_open_ex(const char* path, int mode) {
  if (!path || !*path) return nullptr;
  const bool for_reading = (mode & QNUTIL_MINI_READ) != 0;
  const bool accessible = for_reading ? qnutil::platform::can_read_file(path)
                                      : qnutil::platform::can_write_file(path);
  if (!accessible) return nullptr;
  return qnutil_mini_create(path, for_reading ? 0u : 1u);
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_close(MiniHandle* handle) {
  if (!handle || !*handle) return 0;
  qnutil_mini_destroy(*handle);
  return 1;
}
