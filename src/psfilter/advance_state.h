// Moving tiles between the host's image and the plug-in's buffers.
#pragma once

#include "psfilter/filter_record.h"

struct PSFilter_;

namespace qnutil::psfilter {

// Writes the last output tile back into the result image, then hands out
// fresh input and output tiles for the record's current rectangles and
// planes. Returns noErr, filterBadParameters for planes outside 0..3 or
// memFullErr when a tile cannot be allocated (that tile is then null).
OSErr advance_state(PSFilter_& filter);

// Frees the tiles handed out, without writing anything back.
void drop_tiles(FilterRecord& record);

}  // namespace qnutil::psfilter
