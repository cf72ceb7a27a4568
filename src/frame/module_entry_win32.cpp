// Load and unload of the DLL: its entry point.
#include <windows.h>

#include "frame/module.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  switch (reason) {
    case DLL_PROCESS_ATTACH: qnutil::frame::module_load(instance); break;
    case DLL_PROCESS_DETACH: qnutil::frame::module_unload(); break;
    default: break;
  }
  return TRUE;
}
