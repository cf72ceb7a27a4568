// Deletion of per-thread state when its thread ends. The library keeps such
// state behind thread_local pointers, which need no destructor, instead of
// in thread_local objects with one: a MinGW-built DLL emulates thread-local
// storage and gives it back before those destructors run at thread exit, so
// they would read and free memory already released.
#pragma once

namespace qnutil::platform {

class ThreadValue {
 public:
  virtual ~ThreadValue() = default;
};

// Deletes `value` when the calling thread ends; on Windows also when the
// library is unloaded while the thread runs on. Where the system cannot
// take it (no storage left) the value stays for the rest of the process.
void delete_at_thread_exit(ThreadValue* value);

}  // namespace qnutil::platform
