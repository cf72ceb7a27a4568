// The object behind a MiniHandle outside Windows. Here no host can look
// inside a handle, so it holds what the mini functions use, the path; the
// mode is only ever stored, and is not even that here.
#include <new>
#include <string>

#include "frame/export_guard.h"
#include "ini/class_core.h"

namespace {

struct MiniFile {
  std::string path;
};

}  // namespace

extern "C" MiniHandle qnutil_mini_create(const char* path, unsigned) {
  return qnutil::frame::guard_export<MiniHandle>(
      nullptr, [&] { return reinterpret_cast<MiniHandle>(new (std::nothrow) MiniFile{path}); });
}

extern "C" const char* qnutil_mini_path(MiniHandle handle) {
  return reinterpret_cast<const MiniFile*>(handle)->path.c_str();
}

extern "C" void qnutil_mini_destroy(MiniHandle handle) {
  delete reinterpret_cast<MiniFile*>(handle);
}
