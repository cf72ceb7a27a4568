// The framework's string for the MSVC-ABI classes, the library's own string
// manager, and the heap both share with the host.
#include "ini/msvc_abi_win32.h"

extern "C" {
__declspec(dllimport) void* __stdcall GetProcessHeap(void);
__declspec(dllimport) void* __stdcall HeapAlloc(void* heap, unsigned long flags, size_t bytes);
__declspec(dllimport) int __stdcall HeapFree(void* heap, unsigned long flags, void* block);

// Code compiled for the MSVC ABI that uses floating point refers to this
// symbol of the MSVC run-time, which is not linked here.
int _fltused = 0;
}

// Deleting an exported object, by the host or by the library, ends in
// these: the object came from the host's new or from heap_allocate.
void operator delete(void* block) noexcept { qnutil::msvc::heap_release(block); }
void operator delete(void* block, size_t) noexcept { qnutil::msvc::heap_release(block); }

namespace qnutil::msvc {

void* heap_allocate(size_t bytes) { return HeapAlloc(GetProcessHeap(), 0, bytes); }

void heap_release(void* block) {
  if (block) HeapFree(GetProcessHeap(), 0, block);
}

namespace {

char* copy_chars(char* to, const char* from, int count) {
  for (int i = 0; i < count; ++i) to[i] = from[i];
  return to;
}

int text_length(const char* text) {
  int length = 0;
  while (text[length]) ++length;
  return length;
}

class ProcessHeapStringManager final : public StringManager {
 public:
  constexpr ProcessHeapStringManager() : nil_{{this, 0, 0, 2}, '\0'} {}

  StringData* Allocate(int length, int char_size) override {
    if (length < 0 || char_size < 1) return nullptr;
    const size_t bytes = sizeof(StringData) + (static_cast<size_t>(length) + 1) * char_size;
    auto* data = static_cast<StringData*>(heap_allocate(bytes));
    if (data) *data = StringData{this, 0, length, 1};
    return data;
  }

  void Free(StringData* data) override { heap_release(data); }

  StringData* Reallocate(StringData* data, int length, int char_size) override {
    StringData* larger = Allocate(length, char_size);
    if (!larger) return nullptr;
    const int kept = data->length < length ? data->length : length;
    copy_chars(larger->chars(), data->chars(), (kept + 1) * char_size);
    larger->length = kept;
    Free(data);
    return larger;
  }

  StringData* GetNilString() override {
    nil_.data.add_reference();
    return &nil_.data;
  }

  StringManager* Clone() override { return this; }

 private:
  // The empty string every manager hands out: two references from the
  // start, so that releasing it never frees it.
  struct NilString {
    StringData data;
    char terminator;
  } nil_;
};

// A copy of data as the framework's copy makes it: the same buffer with one
// more reference when it is not locked, else a new buffer of its manager.
StringData* clone(StringData* data) {
  StringManager* manager = data->manager->Clone();
  if (!data->locked() && manager == data->manager) {
    data->add_reference();
    return data;
  }
  StringData* copy = manager->Allocate(data->length, 1);
  if (!copy) return library_string_manager().GetNilString();
  copy_chars(copy->chars(), data->chars(), data->length + 1);
  copy->length = data->length;
  return copy;
}

// Constant-initialised: the MSVC run-time that would guard a dynamic
// initialisation is not linked, and nothing has to run at load.
constinit ProcessHeapStringManager library_manager;

}  // namespace

StringManager& library_string_manager() { return library_manager; }

}  // namespace qnutil::msvc

using qnutil::msvc::StringData;
using qnutil::msvc::StringManager;

QnUtilMfcString::CStringT() { attach(qnutil::msvc::library_string_manager().GetNilString()); }

QnUtilMfcString::CStringT(const char* text) : CStringT() { assign(text); }

QnUtilMfcString::CStringT(const CStringT& other) { attach(qnutil::msvc::clone(other.data())); }

QnUtilMfcString::~CStringT() { data()->release(); }

QnUtilMfcString& QnUtilMfcString::operator=(const CStringT& other) {
  StringData* source = other.data();
  StringData* old = data();
  if (source == old) return *this;
  if (old->locked() || source->manager != old->manager) {
    assign(other.c_str());
  } else {
    attach(qnutil::msvc::clone(source));
    old->release();
  }
  return *this;
}

void QnUtilMfcString::assign(const char* text) {
  const int length = qnutil::msvc::text_length(text);
  StringData* old = data();
  if (old->refs > 1) {
    // Shared (the nil string always is): a buffer of its own from the same manager.
    StringData* fresh = old->manager->Clone()->Allocate(length, 1);
    if (!fresh) return;
    attach(fresh);
    old->release();
  } else if (old->allocated < length) {
    StringData* larger = old->manager->Reallocate(old, length, 1);
    if (!larger) return;
    attach(larger);
  }
  StringData* target = data();
  qnutil::msvc::copy_chars(target->chars(), text, length + 1);
  target->length = length;
}
