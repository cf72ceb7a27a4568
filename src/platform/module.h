// Operating-system work at library load and unload, called by the module
// object's load and unload (the entry points are the frame's).
#pragma once

namespace qnutil::platform {

// Windows: remembers the DLL's instance handle (for resources and the
// module's file name) and calls CoInitialize(NULL) for the loading thread.
// POSIX: nothing.
void module_os_startup(void* instance);
// Windows: CoUninitialize(). POSIX: nothing.
void module_os_shutdown();

}  // namespace qnutil::platform
