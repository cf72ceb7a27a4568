// The framework's CString as an MFC host has it (ATL's CSimpleStringT
// layout and sharing rules), written for the test, with a string manager
// that counts what it allocates and frees. Strings of another manager (the
// library's) are counted when the host releases them.
#pragma once

#include <string.h>

#include "win32_api.h"

namespace host {

struct StringData;

class StringManager {  // IAtlStringMgr
 public:
  virtual StringData* Allocate(int length, int char_size) = 0;
  virtual void Free(StringData* data) = 0;
  virtual StringData* Reallocate(StringData* data, int length, int char_size) = 0;
  virtual StringData* GetNilString() = 0;
  virtual StringManager* Clone() = 0;
};

struct StringData {  // CStringData
  StringManager* manager;
  int length;
  int allocated;
  long refs;
  char* chars() { return reinterpret_cast<char*>(this + 1); }
};

struct StringCounts {
  int host_allocations = 0;
  int host_frees = 0;
  int library_frees = 0;  // strings of the library's manager released by the host
};
// The host runs no dynamic initialisation (it links no C run-time start-up),
// so its globals are constant-initialised.
constinit inline StringCounts string_counts;

class HostStringManager final : public StringManager {
 public:
  constexpr HostStringManager() : nil_{{this, 0, 0, 2}, 0} {}
  StringData* Allocate(int length, int char_size) override {
    auto* data = static_cast<StringData*>(
        HeapAlloc(GetProcessHeap(), 0, sizeof(StringData) + (length + 1) * char_size));
    *data = StringData{this, 0, length, 1};
    ++string_counts.host_allocations;
    return data;
  }
  void Free(StringData* data) override {
    ++string_counts.host_frees;
    HeapFree(GetProcessHeap(), 0, data);
  }
  StringData* Reallocate(StringData* data, int length, int char_size) override {
    StringData* larger = Allocate(length, char_size);
    memcpy(larger->chars(), data->chars(), data->length + 1);
    larger->length = data->length;
    Free(data);
    return larger;
  }
  StringData* GetNilString() override {
    ++nil_.data.refs;
    return &nil_.data;
  }
  StringManager* Clone() override { return this; }

 private:
  struct NilString {
    StringData data;
    char terminator;
  } nil_;
};
constinit inline HostStringManager host_manager;

inline void release(StringData* data) {
  if (--data->refs > 0) return;
  if (data->manager != &host_manager) ++string_counts.library_frees;
  data->manager->Free(data);
}

}  // namespace host

template <>
class ATL::CStringT<char, StrTraitMFC_DLL<char, ATL::ChTraitsCRT<char> > > {
 public:
  CStringT() { text_ = host::host_manager.GetNilString()->chars(); }
  CStringT(const char* text) : CStringT() { *this = text; }
  CStringT(const CStringT& other) {
    host::StringData* data = other.data();
    if (data->refs >= 0 && data->manager->Clone() == data->manager) {
      ++data->refs;
      text_ = data->chars();
    } else {
      text_ = host::host_manager.GetNilString()->chars();
      *this = other.text_;
    }
  }
  ~CStringT() { host::release(data()); }
  CStringT& operator=(const CStringT& other) {
    CStringT copy(other);
    host::StringData* mine = data();
    text_ = copy.text_;
    copy.text_ = mine->chars();
    return *this;
  }
  CStringT& operator=(const char* text) {
    const int length = static_cast<int>(strlen(text));
    host::StringData* fresh = data()->manager->Clone()->Allocate(length, 1);
    memcpy(fresh->chars(), text, length + 1);
    fresh->length = length;
    host::release(data());
    text_ = fresh->chars();
    return *this;
  }
  const char* GetString() const { return text_; }
  host::StringData* data() const { return reinterpret_cast<host::StringData*>(text_) - 1; }

 private:
  char* text_;
};
using CString = QnUtilMfcString;
