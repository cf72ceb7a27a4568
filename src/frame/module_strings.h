// Access to the module's string table (resource strings 1-5).
#pragma once

#include <string>

#include "frame/string_table.h"

namespace qnutil::frame {

// Text of string-table entry `id` in the ANSI code page; "" if there is none.
std::string module_string(unsigned id);

}  // namespace qnutil::frame
