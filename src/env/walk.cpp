#include "env/walk.h"

#include <vector>

#include "env/delimiter.h"

namespace qnutil::env {
namespace {

constexpr int kLookBackLimit = 16;

struct Frame {
  const Element* next;
  std::size_t prefix_length;
  OccurrenceCounter occurrences;
};

}  // namespace

OccurrenceCounter::OccurrenceCounter(const ElementList* list)
    : counted_(list && list->count > kLookBackLimit) {}

long OccurrenceCounter::next(const Element* element) {
  if (counted_) return ++seen_[element->name()];
  long n = 1;
  for (const Element* e = element->prev; e; e = e->prev)
    if (e->name() == element->name()) ++n;
  return n;
}

void append_walk_step(std::string& path, std::string_view name, long occurrence) {
  const std::string& delim = delimiter().text;
  if (!path.empty()) path += delim;
  path += name;
  path += delim;
  path += std::to_string(occurrence);
}

// Iterative, so that trees of any depth are walked without deep recursion.
bool walk_leaves(EnvHandle* env, LeafVisitor visit, void* user) {
  std::vector<Frame> stack;
  std::string path;
  auto walk_section = [&](const Element* section) {
    if (!section->is_block() || !section->value.list) return true;
    const ElementList* list = section->value.list;
    stack.push_back({list->first, 0, OccurrenceCounter(list)});
    while (!stack.empty()) {
      Frame& frame = stack.back();
      const Element* e = frame.next;
      if (!e) {
        stack.pop_back();
        continue;
      }
      frame.next = e->next;
      path.resize(frame.prefix_length);
      append_walk_step(path, e->name(), frame.occurrences.next(e));
      if (e->is_block()) {
        if (e->child_count() > 0)
          stack.push_back({e->value.list->first, path.size(), OccurrenceCounter(e->value.list)});
        continue;
      }
      EnvHandle* leaf = open_sub(env, const_cast<Element*>(e));
      const bool go_on = visit(user, leaf, section->name_cstr(), path.c_str());
      env_close(leaf, 0);
      if (!go_on) return false;
    }
    return true;
  };
  if (env->isSub) return walk_section(env->anchor);
  for (const Element* section = env->top->first; section; section = section->next)
    if (!walk_section(section)) return false;
  return true;
}

}  // namespace qnutil::env
