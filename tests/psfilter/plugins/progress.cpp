// Does all its work inside the start step, one row at a time through the
// host's advanceState, reporting progress after each row and stopping with
// userCanceledErr as soon as abortProc says so. Inverts planes 0..2.
// ProbeCallbacksOutsideRun calls the host's callbacks of the last run
// after it ended, as a plug-in's own thread or window might.
#include "plugin_support.h"

namespace {
FilterRecord* g_lastRecord = nullptr;
}

// Bit 0: abortProc answered true; bit 1: advanceState answered -1.
extern "C" __declspec(dllexport) int ProbeCallbacksOutsideRun() {
  if (!g_lastRecord) return -1;
  g_lastRecord->progressProc(1, 2);
  return (g_lastRecord->abortProc() ? 1 : 0) | (g_lastRecord->advanceState() == -1 ? 2 : 0);
}

QNUTIL_PLUGIN_ENTRY {
  g_lastRecord = record;
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
