#include "platform/thread_exit.h"

#include <windows.h>

#include <new>
#include <vector>

namespace qnutil::platform {
namespace {

using Values = std::vector<ThreadValue*>;

// Fiber-local storage calls this with a thread's list when the thread ends,
// before the DLL's own thread-detach work, and with every thread's list
// when the slot is freed.
void WINAPI delete_values(void* list) {
  auto* values = static_cast<Values*>(list);
  for (ThreadValue* value : *values) delete value;
  delete values;
}

// Freed with the library's static objects, so that no callback into
// unloaded code stays registered.
struct Slot {
  const DWORD index = FlsAlloc(delete_values);
  ~Slot() {
    if (index != FLS_OUT_OF_INDEXES) FlsFree(index);
  }
};

}  // namespace

void delete_at_thread_exit(ThreadValue* value) {
  static Slot slot;
  if (slot.index == FLS_OUT_OF_INDEXES) return;
  auto* values = static_cast<Values*>(FlsGetValue(slot.index));
  if (!values) {
    values = new (std::nothrow) Values;
    if (!values || !FlsSetValue(slot.index, values)) {
      delete values;
      return;
    }
  }
  values->push_back(value);
}

}  // namespace qnutil::platform
