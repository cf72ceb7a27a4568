#include "platform/module.h"

namespace qnutil::platform {

void module_os_startup(void*) {}
void module_os_shutdown() {}

}  // namespace qnutil::platform
