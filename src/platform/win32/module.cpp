#include "platform/module.h"

#include <objbase.h>
#include <windows.h>

#include "frame/module.h"
#include "platform/win32/module_handle.h"

namespace qnutil::platform {
namespace {
HINSTANCE g_instance = nullptr;
}

HINSTANCE win32::module_instance() { return g_instance; }

void module_os_startup() {
  // Result ignored: a host that initialised COM differently keeps its mode.
  (void)CoInitialize(nullptr);
}

void module_os_shutdown() { CoUninitialize(); }

}  // namespace qnutil::platform

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  switch (reason) {
    case DLL_PROCESS_ATTACH:
      qnutil::platform::g_instance = instance;
      qnutil::frame::module_load();
      break;
    case DLL_PROCESS_DETACH:
      qnutil::frame::module_unload();
      break;
    default:
      break;
  }
  return TRUE;
}
