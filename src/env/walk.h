// Walk paths and the depth-first leaf walk shared by env_traverse_leafs
// and env_sink.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "env/handle.h"

namespace qnutil::env {

// Hands out occurrence numbers (1 + earlier siblings of the same name) to
// the elements of one list, visited in order.
class OccurrenceCounter {
 public:
  explicit OccurrenceCounter(const ElementList* list);
  long next(const Element* element);

 private:
  bool counted_;  // long lists count by name; short ones look back
  std::unordered_map<std::string_view, long> seen_;
};

// Appends name + delimiter + occurrence to path, preceded by the delimiter
// when path is not empty.
void append_walk_step(std::string& path, std::string_view name, long occurrence);

// Receives each leaf: a sub-environment on it, the section name and the
// full walk path; false stops the walk.
using LeafVisitor = bool (*)(void* user, EnvHandle* leaf, const char* section, const char* path);

// Visits every data and external element of the environment (of the
// anchor's subtree for a sub-environment, with the anchor's name as the
// section) depth first in list order; empty blocks are passed over.
// False if a visit stopped it.
bool walk_leaves(EnvHandle* env, LeafVisitor visit, void* user);

}  // namespace qnutil::env
