#include "platform/resources.h"

namespace qnutil::platform {

// Shared objects carry no resource section.
bool load_module_string(unsigned, std::string&) { return false; }

}  // namespace qnutil::platform
