#include "platform/resources.h"

#include <windows.h>

#include "platform/win32/module_handle.h"

namespace qnutil::platform {

bool load_module_string(unsigned id, std::string& out) {
  // The resource holds UTF-16; LoadStringA converts to the ANSI code page.
  char buffer[1024];
  const int length = LoadStringA(win32::module_instance(), id, buffer, sizeof buffer);
  if (length <= 0) return false;
  out.assign(buffer, static_cast<size_t>(length));
  return true;
}

}  // namespace qnutil::platform
