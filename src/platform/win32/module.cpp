#include "platform/module.h"

#include <objbase.h>
#include <windows.h>

#include "platform/win32/module_handle.h"

namespace qnutil::platform {
namespace {
HINSTANCE g_instance = nullptr;
}

HINSTANCE win32::module_instance() { return g_instance; }

void module_os_startup(void* instance) {
  g_instance = static_cast<HINSTANCE>(instance);
  // Result ignored: a host that initialised COM differently keeps its mode.
  (void)CoInitialize(nullptr);
}

void module_os_shutdown() { CoUninitialize(); }

}  // namespace qnutil::platform
