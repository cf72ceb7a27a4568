// Puts: store texts, numbers, lists and external values, creating missing
// sections and paths.
#include <cstdarg>
#include <cstdio>
#include <string>

#include "env/handle.h"
#include "env/lookup.h"
#include "frame/export_guard.h"
#include "frame/text_format.h"

using qnutil::frame::guard_export;

namespace qnutil::env {
namespace {

constexpr int kFormatBuffer = 1024;
// Filling gaps of occurrence numbers creates empty elements; a put that would
// create more than this many in all is taken for a mistyped path rather than
// allocated (a name read as a path can ask for millions).
constexpr long kMaxCreatedElements = 1L << 16;

void store(Element* element, const char* text, unsigned external) {
  if (text)
    set_text(element, text);
  else
    set_external(element, external);
}

// Creates what the last lookup found missing below env->current: for the
// first missing component as many elements of its name as its occurrence
// number lacks (empty data elements, then the one that continues the
// path), for every further component its occurrence number of elements.
// An occurrence number 0 cannot be created and gives a bad path, as does a
// put beyond kMaxCreatedElements; both are found before anything is created.
int create_missing(EnvHandle* env, const char* text, unsigned external) {
  const PendingSteps& pending = pending_steps();
  auto count_of = [&pending](const PathStep* step) {
    return step == pending.first ? pending.missing : step->occurrence;
  };
  long total = 0;
  for (const PathStep* step = pending.first; step != pending.end; ++step) {
    const long missing = count_of(step);
    if (missing < 1 || missing > kMaxCreatedElements - total) return ENV_BAD_PATH;
    total += missing;
  }
  Element* current = env->current;
  for (const PathStep* step = pending.first; step != pending.end; ++step) {
    const long missing = count_of(step);
    ElementList& list = make_block(current);
    for (long i = 1; i < missing; ++i) list.append(new_data(step->name, ""));
    current = new_element(step->name);
    list.append(current);
  }
  if (pending.first != pending.end) store(current, text, external);
  return ENV_OK;
}

std::string join_values(int count, const auto& format_one) {
  std::string joined;
  for (int i = 0; i < count; ++i) {
    const std::string value = format_one(i);
    const std::size_t needed = joined.size() + (i ? 1 : 0) + value.size();
    if (needed >= static_cast<std::size_t>(kFormatBuffer)) break;
    if (i) joined += ',';
    joined += value;
  }
  return joined;
}

std::string format_long(long value) { return qnutil::frame::format_text("%ld", value); }
std::string format_double(double value) { return qnutil::frame::format_text("%g", value); }

// The list puts: the items formatted one by one and joined with commas.
template <class Value, class Format>
int put_list(EnvHandle* env, const char* section, const char* path, int count, const Value* values,
             Format format_one) {
  if (count < 1 || !values) return ENV_ERROR;
  return guard_export(ENV_ERROR, [&] {
    const std::string joined = join_values(count, [&](int i) { return format_one(values[i]); });
    return env_put(env, section, path, joined.c_str());
  });
}

}  // namespace
}  // namespace qnutil::env

using namespace qnutil::env;

extern "C" QNUTIL_API int QNUTIL_CALL env_put_core(EnvHandle* env, const char* section,
                                                   const char* path, const char* text,
                                                   unsigned external) {
  return guard_export(ENV_ERROR, [&] {
    const int status = lookup(env, section, path, true, true);
    switch (status) {
      case ENV_DATA:
      case ENV_BLOCK:
      case ENV_EXTERNAL:
        if (!env->isSub && !path) return ENV_OK;
        store(env->current, text, external);
        return ENV_OK;
      case ENV_NOT_FOUND: return create_missing(env, text, external);
      case ENV_BAD_PATH: return ENV_OK;  // callers cannot tell: nothing was stored
      default: return status;
    }
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put(EnvHandle* env, const char* section, const char* path,
                                              const char* text) {
  if (!text) return ENV_ERROR;
  return env_put_core(env, section, path, text, 0);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_string(EnvHandle* env, const char* section,
                                                     const char* path, const char* text) {
  return env_put(env, section, path, text);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_external(EnvHandle* env, const char* section,
                                                       const char* path, unsigned value) {
  return env_put_core(env, section, path, nullptr, value);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_long(EnvHandle* env, const char* section,
                                                   const char* path, long value) {
  return guard_export(ENV_ERROR,
                      [&] { return env_put(env, section, path, format_long(value).c_str()); });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_double(EnvHandle* env, const char* section,
                                                     const char* path, double value) {
  return guard_export(ENV_ERROR,
                      [&] { return env_put(env, section, path, format_double(value).c_str()); });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_format(EnvHandle* env, const char* section,
                                                     const char* path, const char* format, ...) {
  if (!format) return ENV_ERROR;
  char text[kFormatBuffer];
  va_list args;
  va_start(args, format);
  const int length = std::vsnprintf(text, sizeof text, format, args);
  va_end(args);
  if (length < 0 || length >= kFormatBuffer) return ENV_ERROR;
  return env_put(env, section, path, text);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_longs(EnvHandle* env, const char* section,
                                                    const char* path, int count,
                                                    const long* values) {
  return put_list(env, section, path, count, values, format_long);
}

extern "C" QNUTIL_API int QNUTIL_CALL env_put_doubles(EnvHandle* env, const char* section,
                                                      const char* path, int count,
                                                      const double* values) {
  return put_list(env, section, path, count, values, format_double);
}

// A null entry stands for the empty text.
extern "C" QNUTIL_API int QNUTIL_CALL env_put_strings(EnvHandle* env, const char* section,
                                                      const char* path, int count,
                                                      const char** values) {
  return put_list(env, section, path, count, values,
                  [](const char* value) { return std::string(value ? value : ""); });
}
