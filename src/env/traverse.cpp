// Iteration by position, callback walks and name listings.
#include <cstring>
#include <string>

#include "env/handle.h"
#include "env/lookup.h"
#include "env/per_thread.h"
#include "env/walk.h"
#include "frame/export_guard.h"

using qnutil::frame::guard_export;
using namespace qnutil::env;

namespace {

constexpr std::size_t kSavedAddress = 255;

// The per-thread iterator of env_get_first / env_get_next.
struct Iterator {
  bool armed = false;
  EnvHandle* env = nullptr;
  long envId = 0;
  bool has_section = false, has_path = false;
  std::string section, path;
  int direct = 0;
  int next = 0;
};

Iterator& iterator() { return per_thread<Iterator>(); }

bool is_kind(int status) {
  return status == ENV_DATA || status == ENV_BLOCK || status == ENV_EXTERNAL;
}

// The list an address names for the walks: the sections for a root with
// section null, else the addressed block's list. Null with the failure in
// `status` (-2 for anything that is not a block).
ElementList* addressed_list(EnvHandle* env, const char* section, const char* path, int direct,
                            int& status) {
  if (!valid_handle(env, __LINE__)) {
    status = ENV_ERROR;
    return nullptr;
  }
  if (!env->isSub && !section) return env->top;
  status = lookup(env, section, path, direct != 0, false);
  if (status == ENV_BAD_PATH || status == ENV_ERROR) return nullptr;
  if (status != ENV_BLOCK) {
    status = ENV_BLOCK;
    return nullptr;
  }
  static ElementList empty;  // an absent list reads as an empty one
  return env->current->value.list ? env->current->value.list : &empty;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL env_get_first(EnvHandle* env, const char* section,
                                                    const char* path, int direct, long* envId,
                                                    int nameSize, char* name, int valueSize,
                                                    char* value, unsigned* external) {
  return guard_export(ENV_ERROR, [&] {
    Iterator& it = iterator();
    it.armed = false;
    long answered = 0;
    const int status = env_get_pos(env, section, path, direct, 1, &answered, nameSize, name,
                                   valueSize, value, external);
    if (!is_kind(status)) return status;
    if (envId) *envId = answered;
    it.env = env;
    it.envId = answered;
    it.has_section = section != nullptr;
    it.section.assign(section ? section : "", section ? strnlen(section, kSavedAddress) : 0);
    it.has_path = path != nullptr;
    it.path.assign(path ? path : "", path ? strnlen(path, kSavedAddress) : 0);
    it.direct = direct;
    it.next = 2;
    it.armed = true;
    return status;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_next(int nameSize, char* name, int valueSize,
                                                   char* value, unsigned* external) {
  return guard_export(ENV_ERROR, [&] {
    Iterator& it = iterator();
    if (!it.armed) return ENV_NOT_FOUND;
    long answered = 0;
    const int status = env_get_pos(it.env, it.has_section ? it.section.c_str() : nullptr,
                                   it.has_path ? it.path.c_str() : nullptr, it.direct, it.next,
                                   &answered, nameSize, name, valueSize, value, external);
    if (is_kind(status) && answered != it.envId) {
      it.armed = false;
      return ENV_NOT_FOUND;
    }
    if (!is_kind(status)) {
      it.armed = false;
      return status;
    }
    ++it.next;
    return status;
  });
}

// Every element is handed over through a sub-environment opened by its
// walk path, so that `direct` applies to the walk exactly as to any lookup;
// an element its path cannot reach is passed over.
extern "C" QNUTIL_API int QNUTIL_CALL env_traverse(EnvHandle* env, const char* section,
                                                   const char* path, int direct,
                                                   EnvTraverseCallback callback, void* user) {
  return guard_export(ENV_ERROR, [&] {
    int status = ENV_OK;
    ElementList* list = addressed_list(env, section, path, direct, status);
    if (!list) return status;
    if (!list->first) return ENV_BLOCK;
    const bool sections = !env->isSub && !section;
    OccurrenceCounter occurrences(list);
    std::string walk_path;
    for (Element* e = list->first; e;) {
      Element* next = e->next;
      EnvHandle* sub = nullptr;
      if (sections) {
        sub = env_open_subenv(env, e->name_cstr(), nullptr, direct);
        if (sub && callback) callback(sub, e->name_cstr(), nullptr, user);
      } else {
        walk_path = path ? path : "";
        append_walk_step(walk_path, e->name(), occurrences.next(e));
        sub = env_open_subenv(env, section, walk_path.c_str(), direct);
        if (sub && callback) callback(sub, section, walk_path.c_str(), user);
      }
      if (sub) env_close(sub, 0);
      e = next;
    }
    return ENV_OK;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_traverse_leafs(EnvHandle* env, EnvLeafCallback callback,
                                                         void* user) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__)) return ENV_ERROR;
    struct Target {
      EnvLeafCallback callback;
      void* user;
    } target{callback, user};
    const bool finished = walk_leaves(
        env,
        [](void* t, EnvHandle* leaf, const char* section, const char* path) {
          const auto* target = static_cast<Target*>(t);
          if (target->callback) target->callback(leaf, section, path, target->user);
          return true;
        },
        &target);
    return finished ? ENV_OK : ENV_ERROR;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_list_elem_names(EnvHandle* env, const char* section,
                                                          const char* path, int direct,
                                                          char separator, int bufSize, char* buf) {
  return guard_export(ENV_ERROR, [&] {
    if (buf && bufSize >= 1) *buf = '\0';
    int status = ENV_OK;
    const ElementList* list = addressed_list(env, section, path, direct, status);
    if (!list) return status;
    if (bufSize < 2 || !buf) return ENV_TOO_SMALL;
    std::size_t length = 1;
    buf[0] = separator;
    buf[1] = '\0';
    for (const Element* e = list->first; e; e = e->next) {
      if (length + e->name_length + 2 >= static_cast<std::size_t>(bufSize)) {
        *buf = '\0';
        return ENV_TOO_SMALL;
      }
      std::memcpy(buf + length, e->name_cstr(), e->name_length);
      length += e->name_length;
      buf[length++] = separator;
      buf[length] = '\0';
    }
    return ENV_OK;
  });
}
