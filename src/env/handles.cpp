// Handles and their lifetimes: open, close, sub-environments, existence
// tests, deletion and counting.
#include <cstring>

#include "env/delimiter.h"
#include "env/handle.h"
#include "env/lookup.h"
#include "frame/export_guard.h"
#include "qnutil/frame.h"

using qnutil::frame::guard_export;

namespace qnutil::env {

void report(const char* text, int line, const char* extra) {
  QnUtil_Message(text, extra, nullptr, "qnutilenv", line);
}

bool valid_handle(const EnvHandle* env, int line) {
  if (env) return true;
  report("Nil parametr", line);
  return false;
}

EnvHandle* open_sub(EnvHandle* from, Element* element) {
  EnvHandle* sub = new EnvHandle;
  sub->isSub = true;
  sub->anchor = element;
  sub->opener = from;
  sub->envId = from->envId;
  sub->fallback = from->fallback;
  ++from->openSubs;
  return sub;
}

}  // namespace qnutil::env

using namespace qnutil::env;

extern "C" QNUTIL_API EnvHandle* QNUTIL_CALL env_open(long envId, EnvHandle* fallback) {
  return guard_export<EnvHandle*>(nullptr, [&] {
    EnvHandle* env = new EnvHandle;
    env->top = new ElementList;
    env->envId = envId;
    env->fallback = fallback;
    if (fallback) ++fallback->openSubs;
    return env;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_close(EnvHandle* env, int closeFallback) {
  if (!valid_handle(env, __LINE__)) return ENV_ERROR;
  if (env->openSubs > 0) return ENV_IN_USE;
  if (env->isSub) {
    --env->opener->openSubs;
    delete env;
    return ENV_OK;
  }
  EnvHandle* fallback = env->fallback;
  delete env->top;
  delete env;
  if (!fallback) return ENV_OK;
  --fallback->openSubs;
  return closeFallback ? env_close(fallback, closeFallback) : ENV_OK;
}

extern "C" QNUTIL_API int QNUTIL_CALL env_check(EnvHandle* env, const char* section,
                                                const char* path, int direct) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__)) return ENV_ERROR;
    if (!env->isSub && !section) return env->top->count > 0 ? ENV_BLOCK : ENV_NOT_FOUND;
    if (env->isSub && !path) {
      const Element* anchor = env->anchor;
      if (anchor->is_block() && anchor->child_count() == 0) return ENV_NOT_FOUND;
      return kind_status(anchor->kind);
    }
    return lookup(env, section, path, direct != 0, false);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_exist(EnvHandle* env, const char* section,
                                                const char* path, int direct) {
  const int kind = env_check(env, section, path, direct);
  return kind == ENV_DATA || kind == ENV_BLOCK || kind == ENV_EXTERNAL;
}

extern "C" QNUTIL_API int QNUTIL_CALL env_exist_block(EnvHandle* env, const char* section,
                                                      const char* path, int direct) {
  return env_check(env, section, path, direct) == ENV_BLOCK;
}

extern "C" QNUTIL_API int QNUTIL_CALL env_exist_data(EnvHandle* env, const char* section,
                                                     const char* path, int direct) {
  return env_check(env, section, path, direct) == ENV_DATA;
}

extern "C" QNUTIL_API int QNUTIL_CALL env_exist_external(EnvHandle* env, const char* section,
                                                         const char* path, int direct) {
  return env_check(env, section, path, direct) == ENV_EXTERNAL;
}

extern "C" QNUTIL_API EnvHandle* QNUTIL_CALL env_open_subenv(EnvHandle* env, const char* section,
                                                             const char* path, int direct) {
  return guard_export<EnvHandle*>(nullptr, [&]() -> EnvHandle* {
    const int status = lookup(env, section, path, direct != 0, false);
    if (status != ENV_DATA && status != ENV_BLOCK && status != ENV_EXTERNAL) return nullptr;
    return open_sub(env, env->current);
  });
}

extern "C" QNUTIL_API EnvHandle* QNUTIL_CALL env_create_subenv(EnvHandle* env, const char* section,
                                                               const char* path) {
  if (EnvHandle* sub = env_open_subenv(env, section, path, 1)) return sub;
  if (env_put_core(env, section, path, nullptr, 0) != ENV_OK) return nullptr;
  return env_open_subenv(env, section, path, 1);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_delete(EnvHandle* env, const char* section,
                                                 const char* path) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__)) return ENV_ERROR;
    if (!path && env->isSub) return ENV_ERROR;
    const int status = lookup(env, section, path, true, false);
    if (status != ENV_DATA && status != ENV_BLOCK && status != ENV_EXTERNAL) return status;
    Element* doomed = env->current;
    doomed->owner->unlink(doomed);
    free_element(doomed);
    env->current = nullptr;
    return ENV_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_count_elements(EnvHandle* env, const char* section,
                                                         const char* path, int direct) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__)) return ENV_ERROR;
    if (!env->isSub && !section) return env->top->count;
    const int status = lookup(env, section, path, direct != 0, false);
    if (status == ENV_BAD_PATH || status == ENV_ERROR) return status;
    return status == ENV_BLOCK ? env->current->child_count() : 0;
  });
}

// The last component is the text after the last delimiter (first
// character) as written, so a path ending in an occurrence number counts
// siblings named by that number.
extern "C" QNUTIL_API int QNUTIL_CALL env_count_path(EnvHandle* env, const char* section,
                                                     const char* path, int direct) {
  return guard_export(ENV_ERROR, [&] {
    const int status = lookup(env, section, path, direct != 0, false);
    if (status == ENV_NOT_FOUND) return 0;
    if (status != ENV_DATA && status != ENV_BLOCK && status != ENV_EXTERNAL) return status;
    const char* last = path ? std::strrchr(path, delimiter().first()) : nullptr;
    const char* name = last ? last + 1 : (path ? path : env->current->name_cstr());
    return static_cast<int>(env->current->owner->count_named(name));
  });
}
