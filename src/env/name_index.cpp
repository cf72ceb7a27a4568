#include "env/name_index.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace qnutil::env {
namespace {

std::size_t hash_of(std::string_view name) { return std::hash<std::string_view>{}(name); }

}  // namespace

NameIndex::NameIndex(const ElementList& list) {
  std::size_t capacity = 64;
  while (capacity < 2 * static_cast<std::size_t>(list.count)) capacity *= 2;
  slots_.resize(capacity);
  for (Element* e = list.first; e; e = e->next) add_last(e);
}

// The slot holding `name`, or the empty slot where it would go.
std::size_t NameIndex::slot_of(std::string_view name, std::size_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    const Slot& slot = slots_[i];
    if (!slot.first || (slot.hash == hash && slot.first->name() == name)) return i;
  }
}

Element* NameIndex::find(std::string_view name, long n, long& present) const {
  const Slot& slot = slots_[slot_of(name, hash_of(name))];
  if (!slot.first) {
    present = 0;
    return nullptr;
  }
  present = 1 + (slot.more ? static_cast<long>(slot.more->size()) : 0);
  if (n == 1) return slot.first;
  if (n < 1 || n > present) return nullptr;
  return (*slot.more)[static_cast<std::size_t>(n - 2)];
}

void NameIndex::add_last(Element* element) {
  if (2 * (used_ + 1) > slots_.size()) grow();
  const std::size_t hash = hash_of(element->name());
  Slot& slot = slots_[slot_of(element->name(), hash)];
  if (slot.first) {
    if (!slot.more) slot.more = std::make_unique<std::vector<Element*>>();
    slot.more->push_back(element);
    return;
  }
  slot = {hash, element, nullptr};
  ++used_;
}

void NameIndex::grow() {
  std::vector<Slot> old(slots_.size() * 2);
  old.swap(slots_);
  for (Slot& slot : old)
    if (slot.first) slots_[slot_of(slot.first->name(), slot.hash)] = std::move(slot);
}

void NameIndex::remove(Element* element) {
  const std::size_t index = slot_of(element->name(), hash_of(element->name()));
  Slot& slot = slots_[index];
  if (!slot.first) return;
  if (slot.first != element) {
    if (!slot.more) return;
    const auto pos = std::find(slot.more->begin(), slot.more->end(), element);
    if (pos != slot.more->end()) slot.more->erase(pos);
  } else if (slot.more && !slot.more->empty()) {
    // The second occurrence becomes the first.
    slot.first = slot.more->front();
    slot.more->erase(slot.more->begin());
  } else {
    erase_slot(index);
    return;
  }
  if (slot.more->empty()) slot.more.reset();
}

// Backward-shift deletion keeps every probe sequence unbroken without
// tombstones.
void NameIndex::erase_slot(std::size_t index) {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t j = (index + 1) & mask; slots_[j].first; j = (j + 1) & mask) {
    const std::size_t home = slots_[j].hash & mask;
    const bool movable = index <= j ? (home <= index || home > j) : (home <= index && home > j);
    if (movable) {
      slots_[index] = std::move(slots_[j]);
      index = j;
    }
  }
  slots_[index] = {};
  --used_;
}

}  // namespace qnutil::env
