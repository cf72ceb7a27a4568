// The DLL's own instance handle, for resources and module file names.
#pragma once

#include <windows.h>

namespace qnutil::platform::win32 {

HINSTANCE module_instance();

}  // namespace qnutil::platform::win32
