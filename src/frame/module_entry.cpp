// Load and unload of the shared library outside Windows: the ELF
// constructor and destructor.
#include "frame/module.h"

namespace {

__attribute__((constructor)) void on_library_load() { qnutil::frame::module_load(nullptr); }
__attribute__((destructor)) void on_library_unload() { qnutil::frame::module_unload(); }

}  // namespace
