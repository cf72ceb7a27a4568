// Working registers kept per thread (path tokens, the iterator, list items,
// the delimiter copy), so that distinct environments work from several
// threads at once.
#pragma once

#include "platform/thread_exit.h"

namespace qnutil::env {

// This thread's T, made on first use and deleted when the thread ends.
template <class T>
T& per_thread() {
  struct Owned final : platform::ThreadValue {
    T value{};
  };
  thread_local Owned* owned = nullptr;
  if (!owned) {
    owned = new Owned;
    platform::delete_at_thread_exit(owned);
  }
  return owned->value;
}

}  // namespace qnutil::env
