#include "platform/thread_exit.h"

#include <memory>
#include <vector>

namespace qnutil::platform {

// The C library runs thread_local destructors at thread exit, the main
// thread's at process exit.
void delete_at_thread_exit(ThreadValue* value) {
  thread_local std::vector<std::unique_ptr<ThreadValue>> values;
  values.emplace_back(value);
}

}  // namespace qnutil::platform
