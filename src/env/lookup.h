// The lookup every addressed operation runs: section, then the path's
// components with their occurrence numbers, directly or breadth-first.
#pragma once

#include <string_view>

#include "env/handle.h"

namespace qnutil::env {

struct PathStep {
  std::string_view name;
  long occurrence;  // 1-based; 0 in a direct walk means the first element
};

// Where a lookup that ended in ENV_NOT_FOUND stopped: the first step that
// found nothing and how many more elements of its name are missing. Kept
// per thread for the creation that follows it.
struct PendingSteps {
  const PathStep* first = nullptr;
  const PathStep* end = nullptr;
  long missing = 0;
};

int kind_status(Kind kind);

// Looks section/path up in env and leaves the element in env->current.
// Returns (and stores in env->status) the element's kind status, or
// -4, -6, -10. With `create`, a missing section is appended (a bad path is
// refused before) and the walk is always direct.
int lookup(EnvHandle* env, const char* section, const char* path, bool direct, bool create);
const PendingSteps& pending_steps();

// The lookup of a getter: on -4 the fallback chain answers requests that
// name both section and path. On success `found` is the element and
// `answered` the envId of the environment that held it.
int find_element(EnvHandle* env, const char* section, const char* path, int direct, Element*& found,
                 long& answered);

// The pos-th (1-based) element of the list, or null. Stepping on from the
// previous position of the same unchanged list costs one step, so that
// iterations by position stay linear.
Element* element_at(ElementList* list, long pos);

// Splits path at the delimiter into steps (the thread's token register);
// false for a path without any component.
bool split_path(const char* path);

}  // namespace qnutil::env
