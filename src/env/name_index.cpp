#include "env/name_index.h"

#include <algorithm>

namespace qnutil::env {

NameIndex::NameIndex(const ElementList& list) {
  groups_.reserve(static_cast<std::size_t>(list.count));
  for (Element* e = list.first; e; e = e->next) add_last(e);
}

Element* NameIndex::find(std::string_view name, long n, long& present) const {
  const auto it = groups_.find(name);
  if (it == groups_.end()) {
    present = 0;
    return nullptr;
  }
  const Group& group = it->second;
  present = 1 + static_cast<long>(group.more.size());
  if (n == 1) return group.first;
  if (n < 1 || n > present) return nullptr;
  return group.more[static_cast<std::size_t>(n - 2)];
}

void NameIndex::add_last(Element* element) {
  auto [it, added] = groups_.try_emplace(element->name());
  if (added)
    it->second.first = element;
  else
    it->second.more.push_back(element);
}

void NameIndex::remove(Element* element) {
  const auto it = groups_.find(element->name());
  if (it == groups_.end()) return;
  Group& group = it->second;
  if (group.first != element) {
    const auto pos = std::find(group.more.begin(), group.more.end(), element);
    if (pos != group.more.end()) group.more.erase(pos);
    return;
  }
  if (group.more.empty()) {
    groups_.erase(it);
    return;
  }
  // The key views the leaving element's name: re-key on the new first one.
  auto node = groups_.extract(it);
  node.mapped().first = node.mapped().more.front();
  node.mapped().more.erase(node.mapped().more.begin());
  node.key() = node.mapped().first->name();
  groups_.insert(std::move(node));
}

}  // namespace qnutil::env
