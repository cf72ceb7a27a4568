// The element tree of an environment: elements, their lists, and the name
// index that keeps lookups among very many siblings off linear scans.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace qnutil::env {

enum class Kind : std::uint32_t { external = 0, data = 1, block = 2 };

struct ElementList;
class NameIndex;

// One allocation per element: the header followed by the name's bytes.
// Siblings are doubly linked so that deleting and inserting stay O(1).
struct Element {
  Element* next = nullptr;
  Element* prev = nullptr;
  ElementList* owner = nullptr;  // the list holding this element
  Kind kind = Kind::external;
  union {
    char* text;         // data: heap text, may be null (reads as "")
    ElementList* list;  // block: may be null (counts as empty)
    std::uint32_t external;
  } value{};
  std::uint32_t name_length = 0;
  bool inline_text = false;  // data text stored in the element's own allocation

  std::string_view name() const { return {reinterpret_cast<const char*>(this + 1), name_length}; }
  const char* name_cstr() const { return reinterpret_cast<const char*>(this + 1); }
  const char* text_or_empty() const { return value.text ? value.text : ""; }
  bool is_block() const { return kind == Kind::block; }
  int child_count() const;
};

struct ElementList {
  ElementList();
  ~ElementList();
  ElementList(const ElementList&) = delete;
  ElementList& operator=(const ElementList&) = delete;

  int count = 0;
  Element* first = nullptr;
  Element* last = nullptr;
  Element* owner = nullptr;  // the block element holding this list; null at the top level
  // Identifies this list and its state for the positional cache: the serial
  // is unique in the process, the revision changes with every relinking.
  std::uint64_t serial;
  std::uint64_t revision = 0;

  // The n-th (1-based) element named `name`, or null; `present` receives how
  // many elements of that name the list holds when it has fewer than n.
  Element* find(std::string_view name, long n, long* present = nullptr);
  // Number of elements named `name`.
  long count_named(std::string_view name);

  // Deletes every element.
  void clear();
  void append(Element* element);
  void insert_before(Element* element, Element* before);
  // Unlinks element (which must belong to this list) without freeing it.
  void unlink(Element* element);

 private:
  NameIndex* index();
  std::unique_ptr<NameIndex> index_;
};

// Element construction and destruction. Freeing is iterative so that trees
// of any depth are released without deep recursion.
Element* new_element(std::string_view name);
Element* new_data(std::string_view name, std::string_view text);
Element* new_block(std::string_view name);
char* copy_text(std::string_view text);
void free_element(Element* element);
// Removes the element's content (block list or data text); it stays linked.
void clear_content(Element* element);
void set_text(Element* element, std::string_view text);
void set_external(Element* element, std::uint32_t value);
// Makes the element a block (keeping its list if it already is one) and
// returns its list, creating it when absent.
ElementList& make_block(Element* element);

}  // namespace qnutil::env
