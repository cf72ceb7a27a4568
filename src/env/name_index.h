// Index of a large sibling list by name: every name maps to its elements in
// list order, so the n-th occurrence of a name is found in constant time.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "env/tree.h"

namespace qnutil::env {

class NameIndex {
 public:
  explicit NameIndex(const ElementList& list);

  // The n-th (1-based) element of that name, or null; `present` receives how
  // many there are.
  Element* find(std::string_view name, long n, long& present) const;
  // Appends element as the last occurrence of its name.
  void add_last(Element* element);
  void remove(Element* element);

 private:
  // Most names occur once: the first occurrence is held inline and only
  // repeated names pay for a vector.
  struct Group {
    Element* first = nullptr;
    std::vector<Element*> more;
  };
  // Keys view the name of the group's first element, which outlives them.
  std::unordered_map<std::string_view, Group> groups_;
};

}  // namespace qnutil::env
