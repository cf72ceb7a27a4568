// Operating-system work at library load and unload. The load entry point
// itself (DllMain, or an ELF constructor) lives in the implementation files
// and calls frame::module_load / frame::module_unload.
#pragma once

namespace qnutil::platform {

// Windows: CoInitialize(NULL) for the loading thread. POSIX: nothing.
void module_os_startup();
// Windows: CoUninitialize(). POSIX: nothing.
void module_os_shutdown();

}  // namespace qnutil::platform
