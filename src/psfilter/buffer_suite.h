// The buffer suite offered to plug-ins (version 2, 5 procedures).
#pragma once

#include "psfilter/filter_record.h"

namespace qnutil::psfilter {

// Memory the host tells plug-ins they may use (maxSpace, spaceProc).
inline constexpr std::int32_t kHostSpace = 100000000;

BufferProcs make_buffer_procs();

}  // namespace qnutil::psfilter
