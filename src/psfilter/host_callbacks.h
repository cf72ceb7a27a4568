// The callbacks a running plug-in calls directly, and the filter they work
// on. Only one filter runs at a time in the process.
#pragma once

#include "psfilter/filter_record.h"

struct PSFilter_;

namespace qnutil::psfilter {

// The filter whose run is in progress, or null.
void set_current_filter(PSFilter_* filter);

// Fills the record's constant fields and callback tables, once per filter.
void initialise_procs(PSFilter_& filter);

}  // namespace qnutil::psfilter
