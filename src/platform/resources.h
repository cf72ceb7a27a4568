// Module resources: the string-table resource of the DLL. Builds without
// resources (POSIX) have none.
#pragma once

#include <string>

namespace qnutil::platform {

// Loads string `id` of the module's string-table resource in the ANSI code
// page; false when there is no such resource.
bool load_module_string(unsigned id, std::string& out);

}  // namespace qnutil::platform
