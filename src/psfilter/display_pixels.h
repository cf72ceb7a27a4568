// Drawing of pixels a plug-in shows in its own windows (previews).
#pragma once

#include "psfilter/filter_record.h"

namespace qnutil::psfilter {

// Draws `srcRect`'s width and height of `source` at (dstCol, dstRow) of the
// device context `platformContext`. Grey (mode 1) and RGB (mode 3) pixel
// maps are drawn; other modes draw nothing.
OSErr display_pixels(const PSPixelMap* source, const VRect* srcRect, std::int32_t dstRow,
                     std::int32_t dstCol, void* platformContext) noexcept;

}  // namespace qnutil::psfilter
