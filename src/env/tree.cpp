#include "env/tree.h"

#include <atomic>
#include <cstring>
#include <new>
#include <vector>

#include "env/name_index.h"

namespace qnutil::env {
namespace {

// Short lists are scanned; the index pays off only beyond this many siblings.
constexpr int kIndexThreshold = 24;

std::atomic<std::uint64_t> next_serial{1};

}  // namespace

int Element::child_count() const {
  return kind == Kind::block && value.list ? value.list->count : 0;
}

ElementList::ElementList() : serial(next_serial.fetch_add(1, std::memory_order_relaxed)) {}
ElementList::~ElementList() { clear(); }

void ElementList::clear() {
  while (Element* e = first) {
    first = e->next;
    free_element(e);
  }
  last = nullptr;
  count = 0;
  ++revision;
  index_.reset();
}

NameIndex* ElementList::index() {
  if (!index_ && count >= kIndexThreshold) index_ = std::make_unique<NameIndex>(*this);
  return index_.get();
}

Element* ElementList::find(std::string_view name, long n, long* present) {
  long seen = 0;
  Element* found = nullptr;
  if (NameIndex* idx = index()) {
    found = idx->find(name, n, seen);
  } else {
    for (Element* e = first; e; e = e->next) {
      if (e->name() == name && ++seen == n) {
        found = e;
        break;
      }
    }
  }
  if (present) *present = seen;
  return found;
}

long ElementList::count_named(std::string_view name) {
  long present = 0;
  find(name, 0, &present);
  return present;
}

void ElementList::append(Element* element) {
  element->owner = this;
  element->next = nullptr;
  element->prev = last;
  if (last)
    last->next = element;
  else
    first = element;
  last = element;
  ++count;
  ++revision;
  if (index_) index_->add_last(element);
}

void ElementList::insert_before(Element* element, Element* before) {
  element->owner = this;
  element->next = before;
  element->prev = before->prev;
  if (before->prev)
    before->prev->next = element;
  else
    first = element;
  before->prev = element;
  ++count;
  ++revision;
  // The new element's rank among its namesakes is not known cheaply; the
  // index is rebuilt on the next lookup instead.
  index_.reset();
}

void ElementList::unlink(Element* element) {
  if (index_) index_->remove(element);
  if (element->prev)
    element->prev->next = element->next;
  else
    first = element->next;
  if (element->next)
    element->next->prev = element->prev;
  else
    last = element->prev;
  element->next = element->prev = nullptr;
  element->owner = nullptr;
  --count;
  ++revision;
}

namespace {

Element* allocate_element(std::string_view name, std::size_t extra) {
  void* memory = ::operator new(sizeof(Element) + name.size() + 1 + extra);
  Element* element = new (memory) Element;
  char* name_bytes = reinterpret_cast<char*>(element + 1);
  if (!name.empty()) std::memcpy(name_bytes, name.data(), name.size());
  name_bytes[name.size()] = '\0';
  element->name_length = static_cast<std::uint32_t>(name.size());
  return element;
}

}  // namespace

Element* new_element(std::string_view name) { return allocate_element(name, 0); }

char* copy_text(std::string_view text) {
  char* copy = new char[text.size() + 1];
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

// Name and text share one allocation; a later change of the text moves it
// to a heap copy of its own.
Element* new_data(std::string_view name, std::string_view text) {
  Element* element = allocate_element(name, text.size() + 1);
  char* inline_text = reinterpret_cast<char*>(element + 1) + name.size() + 1;
  if (!text.empty()) std::memcpy(inline_text, text.data(), text.size());
  inline_text[text.size()] = '\0';
  element->kind = Kind::data;
  element->value.text = inline_text;
  element->inline_text = true;
  return element;
}

Element* new_block(std::string_view name) {
  Element* element = new_element(name);
  element->kind = Kind::block;
  return element;
}

namespace {

void free_text(Element* element) {
  if (element->kind == Kind::data && !element->inline_text) delete[] element->value.text;
  element->inline_text = false;
}

void release_header(Element* element) {
  free_text(element);
  element->~Element();
  ::operator delete(element);
}

}  // namespace

// Depth first without recursion: descend into the first child of a block
// until a leaf or an empty block is reached, free it, repeat.
void free_element(Element* element) {
  std::vector<Element*> stack{element};
  while (!stack.empty()) {
    Element* top = stack.back();
    ElementList* list = top->kind == Kind::block ? top->value.list : nullptr;
    if (list && list->first) {
      Element* child = list->first;
      list->first = child->next;
      stack.push_back(child);
      continue;
    }
    stack.pop_back();
    delete list;
    release_header(top);
  }
}

void clear_content(Element* element) {
  free_text(element);
  if (element->kind == Kind::block) {
    delete element->value.list;
  }
  element->value.text = nullptr;
}

void set_text(Element* element, std::string_view text) {
  char* copy = copy_text(text);
  clear_content(element);
  element->kind = Kind::data;
  element->value.text = copy;
}

void set_external(Element* element, std::uint32_t value) {
  clear_content(element);
  element->kind = Kind::external;
  element->value.external = value;
}

ElementList& make_block(Element* element) {
  if (element->kind != Kind::block) {
    clear_content(element);
    element->kind = Kind::block;
  }
  if (!element->value.list) {
    element->value.list = new ElementList;
    element->value.list->owner = element;
  }
  return *element->value.list;
}

}  // namespace qnutil::env
