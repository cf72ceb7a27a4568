// Inverts the image in tiles of QNUTIL_PLUGIN_TILE_W x QNUTIL_PLUGIN_TILE_H
// pixels (default 7 x 5), planes QNUTIL_PLUGIN_LO..QNUTIL_PLUGIN_HI (default
// 0..2). Tiles are not cut at the image edge. Prepare checks the fields the
// host must have set and fails with -(2000 + number of the first wrong one).
// QNUTIL_PLUGIN_FAIL "<selector>:<result>" makes that step answer the result
// after its work; QNUTIL_PLUGIN_NO_TILES=1 makes start set no tile.
#include <algorithm>
#include <cstring>

#include "plugin_support.h"

namespace {

bool zero_tail(const FilterRecord& record) {
  const auto* tail = reinterpret_cast<const char*>(&record.bufferSpace64);
  return std::all_of(tail, reinterpret_cast<const char*>(&record + 1),
                     [](char byte) { return byte == 0; });
}

std::int16_t check_record(const FilterRecord& r) {
  const std::uint8_t colour[4] = {0, 0, 0, 0xFF};
  const bool checks[] = {
      r.serialNumber == 0 && r.abortProc && r.progressProc && r.hostProc && r.processEvent &&
          r.displayPixels && r.advanceState,
      r.maxSpace == 100000000,
      std::memcmp(r.backColor, colour, 4) == 0 && std::memcmp(r.foreColor, colour, 4) == 0,
      std::memcmp(&r.hostSig, "APRI", 4) == 0,
      r.imageMode == plugInModeRGBColor && r.planes == 3 && r.depth == 8,
      r.platformData != nullptr,
      r.bufferProcs && r.bufferProcs->bufferProcsVersion == 2 && r.bufferProcs->numBufferProcs == 5,
      r.handleProcs && r.handleProcs->handleProcsVersion == 1 && r.handleProcs->numHandleProcs == 8,
      r.dummyPlaneValue == -1 && r.supportsAbsolute,
      r.inLayerPlanes == 3 && r.inTransparencyMask == 1 && r.outLayerPlanes == 3 &&
          r.outTransparencyMask == 1 && r.absLayerPlanes == 3 && r.absTransparencyMask == 1,
      r.inPlaneBytes == 1 && r.outPlaneBytes == 1,
      r.inTileHeight == 256 && r.inTileWidth == 256 && r.outTileHeight == 256 &&
          r.outTileWidth == 256 && r.absTileHeight == 256 && r.absTileWidth == 256 &&
          r.maskTileHeight == 256 && r.maskTileWidth == 256,
      r.filterRect.top == 0 && r.filterRect.left == 0 && r.filterRect.bottom == r.imageSize.v &&
          r.filterRect.right == r.imageSize.h,
      r.imageHRes == 0x608000 && r.imageVRes == 0x608000,
      r.floatCoord.v == r.imageSize.v && r.floatCoord.h == r.imageSize.h &&
          r.wholeSize.v == r.imageSize.v && r.wholeSize.h == r.imageSize.h,
      r.sSPBasic == nullptr && r.bigDocumentData == nullptr && zero_tail(r),
  };
  return plugin::first_failed(checks, 2000);
}

void set_tile(FilterRecord& record, int top, int left) {
  const int tileWidth = plugin::env_int("QNUTIL_PLUGIN_TILE_W", 7);
  const int tileHeight = plugin::env_int("QNUTIL_PLUGIN_TILE_H", 5);
  plugin::set_rect(record.inRect, top, left, top + tileHeight, left + tileWidth);
  record.outRect = record.inRect;
  record.inLoPlane = record.outLoPlane = std::int16_t(plugin::env_int("QNUTIL_PLUGIN_LO", 0));
  record.inHiPlane = record.outHiPlane = std::int16_t(plugin::env_int("QNUTIL_PLUGIN_HI", 2));
}

// The next tile to the right, else the first of the next row of tiles.
void advance(FilterRecord& record) {
  int top = record.outRect.top;
  int left = record.outRect.right;
  if (left >= record.imageSize.h) {
    left = 0;
    top = record.outRect.bottom;
  }
  if (top >= record.imageSize.v)
    plugin::clear_tiles(record);
  else
    set_tile(record, top, left);
}

}  // namespace

QNUTIL_PLUGIN_ENTRY {
  switch (selector) {
    case filterSelectorPrepare: *result = check_record(*record); break;
    case filterSelectorStart:
      if (!plugin::env_int("QNUTIL_PLUGIN_NO_TILES", 0)) set_tile(*record, 0, 0);
      break;
    case filterSelectorContinue:
      plugin::map_tile(*record, [](std::uint8_t value) { return std::uint8_t(255 - value); });
      advance(*record);
      break;
    case filterSelectorFinish: plugin::clear_tiles(*record); break;
    default: break;
  }
  const std::string fail = plugin::env("QNUTIL_PLUGIN_FAIL");
  if (fail.size() > 2 && fail[0] - '0' == selector)
    *result = std::int16_t(std::atoi(fail.c_str() + 2));
}
