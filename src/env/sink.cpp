// Copying leaves from one environment into another.
#include <string>

#include "env/delimiter.h"
#include "env/handle.h"
#include "env/walk.h"
#include "frame/export_guard.h"

using qnutil::frame::guard_export;
using namespace qnutil::env;

namespace {

enum SinkMode { kKeepExisting = 0, kAppend = 1, kOverwrite = 2, kOnlyExisting = 3 };

// Leaf texts pass through a buffer of this size: longer ones stop the copy.
constexpr int kLeafBuffer = 255;

struct Sink {
  EnvHandle* dst;
  int mode;
};

// The walk path with its last occurrence number replaced by the next free
// one in dst.
std::string appended_path(EnvHandle* dst, const char* section, const std::string& path) {
  const std::string& delim = delimiter().text;
  const std::string prefix = path.substr(0, path.rfind(delim));
  const int present = env_count_path(dst, section, prefix.c_str(), 1);
  return prefix + delim + std::to_string(present < 0 ? 1 : present + 1);
}

bool copy_leaf(void* user, EnvHandle* leaf, const char* section, const char* path) {
  const Sink& sink = *static_cast<Sink*>(user);
  const int kind = env_check(leaf, nullptr, nullptr, 1);
  if (kind == ENV_EXTERNAL) return true;
  char text[kLeafBuffer];
  if (kind != ENV_DATA || env_get(leaf, nullptr, nullptr, 1, sizeof text, text) < 0) return false;
  std::string target = path;
  switch (sink.mode) {
    case kKeepExisting:
      if (env_check(sink.dst, section, path, 1) != ENV_NOT_FOUND) return true;
      break;
    case kOnlyExisting:
      if (env_check(sink.dst, section, path, 1) == ENV_NOT_FOUND) return true;
      break;
    case kAppend: target = appended_path(sink.dst, section, target); break;
    default: break;
  }
  return env_put(sink.dst, section, target.c_str(), text) == ENV_OK;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL env_sink(EnvHandle* dst, EnvHandle* src, int mode) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(dst, __LINE__) || !valid_handle(src, __LINE__)) return ENV_ERROR;
    if (mode < kKeepExisting || mode > kOnlyExisting) {
      report("switch error!", __LINE__);
      return ENV_ERROR;
    }
    Sink sink{dst, mode};
    return walk_leaves(src, copy_leaf, &sink) ? ENV_OK : ENV_ERROR;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_copy_block(EnvHandle* dst, EnvHandle* src,
                                                     const char* section, const char* path,
                                                     int mode) {
  EnvHandle* from = env_open_subenv(src, section, path, 1);
  if (!from) return ENV_ERROR;
  EnvHandle* to = env_create_subenv(dst, section, path);
  if (!to) {
    env_close(from, 0);
    return ENV_ERROR;
  }
  const int result = env_sink(to, from, mode);
  env_close(to, 0);
  env_close(from, 0);
  return result;
}
