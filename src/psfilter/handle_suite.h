// The handle suite offered to plug-ins (version 1, 8 procedures).
#pragma once

#include "psfilter/filter_record.h"

namespace qnutil::psfilter {

HandleProcs make_handle_procs();

// Frees a handle the host made, or a plug-in's own global-memory handle (or
// a pointer to one); anything else is left alone.
void dispose_handle(Handle handle);

}  // namespace qnutil::psfilter
