// Module resources: the string table. On Windows it is a string-table
// resource of the DLL; elsewhere a table built into the library.
#pragma once

#include <string>

namespace qnutil::platform {

// Loads string `id` of the module's string table in the ANSI code page.
bool load_module_string(unsigned id, std::string& out);

}  // namespace qnutil::platform
