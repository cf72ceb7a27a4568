// Does all its work inside the start step, one row at a time through the
// host's advanceState, reporting progress after each row and stopping with
// userCanceledErr as soon as abortProc says so. Inverts planes 0..2.
#include "plugin_support.h"

QNUTIL_PLUGIN_ENTRY {
  if (selector != filterSelectorStart) return;
  const int rows = record->imageSize.v;
  for (int row = 0; row < rows; ++row) {
    plugin::set_rect(record->inRect, row, 0, row + 1, record->imageSize.h);
    record->outRect = record->inRect;
    record->inLoPlane = record->outLoPlane = 0;
    record->inHiPlane = record->outHiPlane = 2;
    if (const OSErr advanced = record->advanceState()) {
      *result = advanced;
      return;
    }
    plugin::map_tile(*record, [](std::uint8_t value) { return std::uint8_t(255 - value); });
    record->progressProc(row + 1, rows);
    if (record->abortProc()) {
      *result = userCanceledErr;
      return;
    }
  }
  plugin::clear_tiles(*record);
}
