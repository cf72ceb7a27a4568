#include "platform/module.h"

#include "frame/module.h"

namespace qnutil::platform {

void module_os_startup() {}
void module_os_shutdown() {}

namespace {

__attribute__((constructor)) void on_library_load() { frame::module_load(); }
__attribute__((destructor)) void on_library_unload() { frame::module_unload(); }

}  // namespace
}  // namespace qnutil::platform
