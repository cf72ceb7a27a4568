// The host's side of the C++ boundary, for the sources compiled for the
// MSVC ABI (clang --target=*-windows-msvc, without Microsoft's headers or
// run-time): the framework's string and string-manager layouts, and the
// process heap that the host's operator new uses.
#pragma once

#include <stddef.h>

#include "qnutil/mfc_classes_win32.h"

// Placement new: <new> belongs to the MSVC run-time, which is not here.
inline void* operator new(size_t, void* place) noexcept { return place; }

namespace qnutil::msvc {

// Blocks of the host's C run-time heap (its new and malloc use the process
// heap); every object and string the library creates for the host lives there.
void* heap_allocate(size_t bytes);
void heap_release(void* block);

struct StringData;

// The framework's IAtlStringMgr: five member functions in this slot order.
class StringManager {
 public:
  virtual StringData* Allocate(int length, int char_size) = 0;
  virtual void Free(StringData* data) = 0;
  virtual StringData* Reallocate(StringData* data, int length, int char_size) = 0;
  virtual StringData* GetNilString() = 0;
  virtual StringManager* Clone() = 0;
};

// The framework's CStringData: the header just before a string's characters.
struct StringData {
  StringManager* manager;
  int length;
  int allocated;  // characters the buffer holds, terminator not counted
  long refs;      // sharing strings; negative while the owner has it locked

  char* chars() { return reinterpret_cast<char*>(this + 1); }
  bool locked() const { return refs < 0; }
  void add_reference() { __atomic_add_fetch(&refs, 1, __ATOMIC_SEQ_CST); }
  void release() {
    if (__atomic_sub_fetch(&refs, 1, __ATOMIC_SEQ_CST) <= 0) manager->Free(this);
  }
};

// The library's own manager, for strings it creates without a host string
// to take a manager from. It lives as long as the DLL is loaded.
StringManager& library_string_manager();

}  // namespace qnutil::msvc

// The framework's 8-bit string with the framework's semantics: copies share
// the buffer unless it is locked, and a new text is written into a buffer
// of the string's own manager. Where the framework would throw on a failed
// allocation, the string keeps its old text (or stays empty).
template <>
class ATL::CStringT<char, StrTraitMFC_DLL<char, ATL::ChTraitsCRT<char> > > {
 public:
  CStringT();
  explicit CStringT(const char* text);
  CStringT(const CStringT& other);
  ~CStringT();
  CStringT& operator=(const CStringT& other);

  // The framework's SetString: text replaces the contents.
  void assign(const char* text);
  const char* c_str() const { return text_; }
  int length() const { return data()->length; }

 private:
  qnutil::msvc::StringData* data() const {
    return reinterpret_cast<qnutil::msvc::StringData*>(text_) - 1;
  }
  void attach(qnutil::msvc::StringData* data) { text_ = data->chars(); }

  char* text_;
};

namespace qnutil::msvc {

using FrameworkString = QnUtilMfcString;

// A string field of the exported classes, which the public header declares
// as a slot of the string's size.
inline FrameworkString& as_string(QnUtilMfcStringSlot& slot) {
  static_assert(sizeof(FrameworkString) == sizeof(QnUtilMfcStringSlot));
  return *reinterpret_cast<FrameworkString*>(&slot);
}
inline const FrameworkString& as_string(const QnUtilMfcStringSlot& slot) {
  return *reinterpret_cast<const FrameworkString*>(&slot);
}

}  // namespace qnutil::msvc
