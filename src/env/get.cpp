// Gets: texts, references, numbers, lists and external values, with the
// fallback chain answering what an environment lacks.
#include <cstring>
#include <vector>

#include "env/handle.h"
#include "env/lookup.h"
#include "env/per_thread.h"
#include "env/value_scanner.h"
#include "frame/export_guard.h"

using qnutil::frame::guard_export;

namespace qnutil::env {
namespace {

// Looks a data element up; blocks and external elements answer -1.
int find_data(EnvHandle* env, const char* section, const char* path, int direct, Element*& found,
              long& answered) {
  const int status = find_element(env, section, path, direct, found, answered);
  if (status == ENV_BLOCK || status == ENV_EXTERNAL) return ENV_DATA;
  if (status == ENV_DATA) return ENV_OK;
  return status;
}

// Shared by the list getters: scans the text and hands every item to
// `store`, which reports false when the item does not fit.
template <class Store>
int get_items(EnvHandle* env, const char* section, const char* path, int direct, int* count,
              ItemSyntax syntax, Store store) {
  if (!count) return ENV_ERROR;
  const int capacity = *count;
  *count = 0;
  Element* found = nullptr;
  long answered = 0;
  const int status = find_data(env, section, path, direct, found, answered);
  if (status != ENV_OK) return status;
  auto& items = per_thread<std::vector<std::string_view>>();
  if (!scan_items(found->text_or_empty(), syntax, items)) return ENV_SYNTAX;
  if (items.size() > static_cast<std::size_t>(capacity < 0 ? 0 : capacity)) return ENV_TOO_SMALL;
  for (std::size_t i = 0; i < items.size(); ++i)
    if (!store(i, items[i])) return ENV_TOO_SMALL;
  *count = static_cast<int>(items.size());
  return static_cast<int>(answered);
}

template <class Value, class Convert>
int get_single(EnvHandle* env, const char* section, const char* path, int direct, Value* value,
               ItemSyntax syntax, Convert convert) {
  int count = 1;
  Value result{};
  const int status = get_items(env, section, path, direct, &count, syntax,
                               [&](std::size_t, std::string_view item) {
                                 result = convert(item);
                                 return true;
                               });
  if (status >= 0 && value) *value = result;
  return status;
}

// The numeric list getters: every item converted into values[i].
template <class Value, class Convert>
int get_numbers(EnvHandle* env, const char* section, const char* path, int direct, int* count,
                Value* values, ItemSyntax syntax, Convert convert) {
  return get_items(env, section, path, direct, count, syntax,
                   [values, convert](std::size_t i, std::string_view item) {
                     if (!values) return false;
                     values[i] = convert(item);
                     return true;
                   });
}

// Copies text into a buffer of `size` bytes; what fits when it does not.
bool copy_fitting(std::string_view text, int size, char* buffer) {
  if (!buffer || size < 1) return false;
  const std::size_t room = static_cast<std::size_t>(size) - 1;
  const std::size_t n = text.size() < room ? text.size() : room;
  std::memcpy(buffer, text.data(), n);
  buffer[n] = '\0';
  return n == text.size();
}

}  // namespace
}  // namespace qnutil::env

using namespace qnutil::env;

extern "C" QNUTIL_API int QNUTIL_CALL env_get(EnvHandle* env, const char* section, const char* path,
                                              int direct, int bufSize, char* buf) {
  return guard_export(ENV_ERROR, [&] {
    Element* found = nullptr;
    long answered = 0;
    const int status = find_data(env, section, path, direct, found, answered);
    if (status != ENV_OK) return status;
    const char* text = found->text_or_empty();
    const std::size_t length = std::strlen(text);
    if (!buf || bufSize < 1 || length >= static_cast<std::size_t>(bufSize)) return ENV_TOO_SMALL;
    std::memcpy(buf, text, length + 1);
    return static_cast<int>(answered);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_reference(EnvHandle* env, const char* section,
                                                        const char* path, int direct, char** text) {
  return guard_export(ENV_ERROR, [&] {
    Element* found = nullptr;
    long answered = 0;
    const int status = find_data(env, section, path, direct, found, answered);
    if (status != ENV_OK) return status;
    // A data element always holds a text of its own, so the reference stays
    // valid until the element changes.
    if (!found->value.text) found->value.text = copy_text("");
    if (text) *text = found->value.text;
    return static_cast<int>(answered);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_string(EnvHandle* env, const char* section,
                                                     const char* path, int direct, char* buf) {
  return guard_export(ENV_ERROR, [&] {
    Element* found = nullptr;
    long answered = 0;
    const int status = find_data(env, section, path, direct, found, answered);
    if (!buf) return status == ENV_OK ? static_cast<int>(answered) : status;
    if (status != ENV_OK) {
      *buf = '\0';
      return status;
    }
    std::strcpy(buf, found->text_or_empty());
    return static_cast<int>(answered);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_long(EnvHandle* env, const char* section,
                                                   const char* path, int direct, long* value) {
  return guard_export(ENV_ERROR, [&] {
    return get_single(env, section, path, direct, value, ItemSyntax::integer, integer_value);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_double(EnvHandle* env, const char* section,
                                                     const char* path, int direct, double* value) {
  return guard_export(ENV_ERROR, [&] {
    return get_single(env, section, path, direct, value, ItemSyntax::real, real_value);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_longs(EnvHandle* env, const char* section,
                                                    const char* path, int direct, int* count,
                                                    long* values) {
  return guard_export(ENV_ERROR, [&] {
    return get_numbers(env, section, path, direct, count, values, ItemSyntax::integer,
                       integer_value);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_doubles(EnvHandle* env, const char* section,
                                                      const char* path, int direct, int* count,
                                                      double* values) {
  return guard_export(ENV_ERROR, [&] {
    return get_numbers(env, section, path, direct, count, values, ItemSyntax::real, real_value);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_strings(EnvHandle* env, const char* section,
                                                      const char* path, int direct, int* count,
                                                      int size, char** values) {
  return guard_export(ENV_ERROR, [&] {
    return get_items(env, section, path, direct, count, ItemSyntax::word,
                     [values, size](std::size_t i, std::string_view item) {
                       return values && values[i] && item.size() < static_cast<std::size_t>(size) &&
                              copy_fitting(item, size, values[i]);
                     });
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_get_external(EnvHandle* env, const char* section,
                                                       const char* path, int direct,
                                                       unsigned* value) {
  return guard_export(ENV_ERROR, [&] {
    Element* found = nullptr;
    long answered = 0;
    const int status = find_element(env, section, path, direct, found, answered);
    if (status == ENV_DATA || status == ENV_BLOCK) return ENV_EXTERNAL;
    if (status != ENV_EXTERNAL) return status;
    if (value) *value = found->value.external;
    return static_cast<int>(answered);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_data_length(EnvHandle* env, const char* section,
                                                      const char* path, int direct) {
  return guard_export(0, [&] {
    Element* found = nullptr;
    long answered = 0;
    if (find_data(env, section, path, direct, found, answered) != ENV_OK) return 0;
    return static_cast<int>(std::strlen(found->text_or_empty()));
  });
}

// Non-data elements leave an empty text in `value`, so that a caller never
// reads a previous element's text.
extern "C" QNUTIL_API int QNUTIL_CALL env_get_pos(EnvHandle* env, const char* section,
                                                  const char* path, int direct, int pos,
                                                  long* envIdOut, int nameSize, char* name,
                                                  int valueSize, char* value, unsigned* external) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__)) return ENV_ERROR;
    ElementList* list = nullptr;
    if (!env->isSub && !section) {
      if (pos < 1) {
        report("section == NIL and pos == 0", __LINE__);
        return ENV_NOT_FOUND;
      }
      list = env->top;
    } else {
      if (pos < 1) return ENV_NOT_FOUND;
      const int status = lookup(env, section, path, direct != 0, false);
      if (status == ENV_BAD_PATH || status == ENV_ERROR) return status;
      if (status == ENV_BLOCK) list = env->current->value.list;
    }
    Element* element = element_at(list, pos);
    if (!element) return ENV_NOT_FOUND;
    env->current = element;
    if (envIdOut) *envIdOut = env->envId;
    bool fits = !name || copy_fitting(element->name(), nameSize, name);
    if (element->kind == Kind::data) {
      fits = (!value || copy_fitting(element->text_or_empty(), valueSize, value)) && fits;
    } else if (value && valueSize > 0) {
      *value = '\0';
    }
    if (element->kind == Kind::external && external) *external = element->value.external;
    return fits ? kind_status(element->kind) : ENV_TOO_SMALL;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_insert_before(EnvHandle* env, const char* section,
                                                        const char* path, const char* newName) {
  return guard_export(ENV_ERROR, [&] {
    if (!valid_handle(env, __LINE__) || !newName) return ENV_ERROR;
    if (!env->isSub && !path) {
      if (!section) return ENV_ERROR;
      if (Element* before = env->top->find(section, 1))
        env->top->insert_before(new_block(newName), before);
      return ENV_OK;
    }
    const int status = lookup(env, section, path, true, false);
    if (status == ENV_BAD_PATH) return ENV_ERROR;
    if (status != ENV_DATA && status != ENV_BLOCK && status != ENV_EXTERNAL) return status;
    env->current->owner->insert_before(new_element(newName), env->current);
    return ENV_OK;
  });
}
