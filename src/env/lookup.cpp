#include "env/lookup.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "env/delimiter.h"
#include "env/per_thread.h"

namespace qnutil::env {
namespace {

struct PathRegister {
  std::string copy;
  std::vector<PathStep> steps;
  PendingSteps pending;
};

PathRegister& path_register() { return per_thread<PathRegister>(); }

bool all_digits(std::string_view token) {
  for (char c : token)
    if (c < '0' || c > '9') return false;
  return true;
}

// Occurrence numbers beyond the 32-bit range cannot address anything.
long occurrence_number(std::string_view digits) {
  long n = 0;
  for (char c : digits) {
    n = n * 10 + (c - '0');
    if (n > INT32_MAX) return INT32_MAX;
  }
  return n;
}

Element* find_direct(Element* current, const PathStep& step, long& present) {
  present = 0;
  if (!current->is_block() || !current->value.list) return nullptr;
  ElementList* list = current->value.list;
  if (step.occurrence == 0) return list->first;
  return list->find(step.name, step.occurrence, &present);
}

// Breadth first below current: each list is asked for the n-th element of
// the name (counting afresh per list); when a list has none, its blocks
// join the queue in list order. Occurrence 0 matches nothing here.
Element* find_breadth_first(Element* current, const PathStep& step) {
  if (!current->is_block() || !current->value.list || step.occurrence < 1) return nullptr;
  std::deque<ElementList*> queue{current->value.list};
  while (!queue.empty()) {
    ElementList* list = queue.front();
    queue.pop_front();
    if (Element* hit = list->find(step.name, step.occurrence)) return hit;
    for (Element* e = list->first; e; e = e->next)
      if (e->is_block() && e->value.list && e->value.list->count) queue.push_back(e->value.list);
  }
  return nullptr;
}

}  // namespace

bool split_path(const char* path) {
  PathRegister& reg = path_register();
  const DelimiterView delim = delimiter();
  reg.copy.assign(path);
  reg.steps.clear();
  const std::string_view text = reg.copy;
  std::size_t pos = 0;
  bool expect_name = true;
  while (pos < text.size()) {
    while (pos < text.size() && delim.separates[static_cast<unsigned char>(text[pos])]) ++pos;
    const std::size_t start = pos;
    while (pos < text.size() && !delim.separates[static_cast<unsigned char>(text[pos])]) ++pos;
    if (pos == start) break;
    const std::string_view token = text.substr(start, pos - start);
    if (!expect_name && all_digits(token)) {
      reg.steps.back().occurrence = occurrence_number(token);
      expect_name = true;
    } else {
      reg.steps.push_back({token, 1});
      expect_name = false;
    }
  }
  return !reg.steps.empty();
}

const PendingSteps& pending_steps() { return path_register().pending; }

int kind_status(Kind kind) {
  switch (kind) {
    case Kind::data: return ENV_DATA;
    case Kind::block: return ENV_BLOCK;
    case Kind::external: return ENV_EXTERNAL;
  }
  return ENV_ERROR;
}

int lookup(EnvHandle* env, const char* section, const char* path, bool direct, bool create) {
  if (!valid_handle(env, __LINE__)) return ENV_ERROR;
  env->status = ENV_OK;
  PathRegister& reg = path_register();
  reg.pending = {};
  auto finish = [env](int status) { return env->status = status; };

  if (path && !split_path(path)) {
    report("Bad Path was given", __LINE__);
    return finish(ENV_BAD_PATH);
  }
  if (!path) reg.steps.clear();
  const PathStep* step = reg.steps.data();
  const PathStep* end = step + reg.steps.size();

  if (env->isSub) {
    env->current = env->anchor;
  } else {
    if (!section) {
      report("bypass Nil section", __LINE__);
      return finish(ENV_ERROR);
    }
    env->current = env->top->find(section, 1);
    if (!env->current) {
      if (create) {
        env->current = new_block(section);
        env->top->append(env->current);
        reg.pending = {step, end, step != end ? step->occurrence : 0};
      }
      return finish(ENV_NOT_FOUND);
    }
  }

  for (; step != end; ++step) {
    long present = 0;
    Element* next = direct || create ? find_direct(env->current, *step, present)
                                     : find_breadth_first(env->current, *step);
    if (!next) {
      reg.pending = {step, end, step->occurrence - present};
      return finish(ENV_NOT_FOUND);
    }
    env->current = next;
  }
  return finish(kind_status(env->current->kind));
}

int find_element(EnvHandle* env, const char* section, const char* path, int direct, Element*& found,
                 long& answered) {
  for (;;) {
    const int status = lookup(env, section, path, direct != 0, false);
    if (status == ENV_NOT_FOUND && env->fallback && section && path) {
      env = env->fallback;
      continue;
    }
    if (status == ENV_DATA || status == ENV_BLOCK || status == ENV_EXTERNAL) {
      found = env->current;
      answered = env->envId;
    }
    return status;
  }
}

Element* element_at(ElementList* list, long pos) {
  struct Cursor {
    std::uint64_t serial = 0, revision = 0;
    long pos = 0;
    Element* element = nullptr;
  };
  thread_local Cursor cursor;
  if (!list || pos < 1) return nullptr;
  Element* e = list->first;
  long at = 1;
  if (cursor.serial == list->serial && cursor.revision == list->revision && cursor.pos <= pos &&
      cursor.element) {
    e = cursor.element;
    at = cursor.pos;
  }
  for (; e && at < pos; ++at) e = e->next;
  if (e) cursor = {list->serial, list->revision, pos, e};
  return e;
}

}  // namespace qnutil::env
