// Opening and closing mini handles.
#include <new>

#include "frame/export_guard.h"
#include "ini/mini_handle.h"
#include "platform/settings_file.h"
#include "qnutil/files.h"

using qnutil::frame::guard_export;
using qnutil::ini::mini_handle;

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
  return guard_export<MiniHandle>(nullptr, [&] {
    return mini_handle(new (std::nothrow) CQnIniFile(path, for_reading ? 0u : 1u));
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL mini_close(MiniHandle* handle) {
  if (!handle || !*handle) return 0;
  delete qnutil::ini::ini_file(*handle);
  return 1;
}
