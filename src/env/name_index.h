// Index of a large sibling list by name: every name maps to its elements in
// list order, so the n-th occurrence of a name is found in constant time.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
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
  // Open addressing with linear probing: a lookup touches one slot and the
  // element it names (whose name and text share its allocation), which
  // matters once the table no longer fits the caches.
  struct Slot {
    std::size_t hash = 0;
    Element* first = nullptr;  // first occurrence of the name; null: empty slot
    // Later occurrences of a repeated name, in list order; most names have
    // none, so the slot stays small.
    std::unique_ptr<std::vector<Element*>> more;
  };

  std::size_t slot_of(std::string_view name, std::size_t hash) const;
  void grow();
  void erase_slot(std::size_t index);

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
};

}  // namespace qnutil::env
