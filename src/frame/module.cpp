#include "frame/module.h"

#include "platform/module.h"

namespace qnutil::frame {

Module& module() {
  // Never destroyed: exports may still run from other modules' static
  // destructors after this library's own have finished.
  static Module* instance = new Module();
  return *instance;
}

void module_load(void* instance) {
  module();
  platform::module_os_startup(instance);
}

void module_unload() {
  Module& m = module();
  std::lock_guard guard(m.lock);
  // The calculator interface is forgotten, not released: by the time the
  // library unloads, the component's server may already be gone.
  m.calculator = nullptr;
  platform::module_os_shutdown();
  if (m.logFile) {
    std::fclose(m.logFile);
    m.logFile = nullptr;
  }
}

}  // namespace qnutil::frame
