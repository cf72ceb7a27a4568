// Fails where QNUTIL_PLUGIN_FAIL says, as "<selector>:<result>". The start
// step sets two tiles, the top and the bottom half of the image; each
// continue step inverts the current tile before it answers. The finish
// step clears the tiles. QNUTIL_PLUGIN_NO_TILES=1 makes start set none.
#include "plugin_support.h"

QNUTIL_PLUGIN_ENTRY {
  (void)data;
  plugin::trace(selector);
  *result = noErr;
  const std::string fail = plugin::env("QNUTIL_PLUGIN_FAIL");
  const bool failsHere = fail.size() > 2 && fail[0] - '0' == selector;
  const int half = record->imageSize.v / 2;
  switch (selector) {
    case filterSelectorStart:
      if (plugin::env_int("QNUTIL_PLUGIN_NO_TILES", 0)) break;
      plugin::set_rect(record->inRect, 0, 0, half, record->imageSize.h);
      record->outRect = record->inRect;
      record->inLoPlane = record->outLoPlane = 0;
      record->inHiPlane = record->outHiPlane = 2;
      break;
    case filterSelectorContinue:
      plugin::map_tile(*record, [](std::uint8_t value) { return std::uint8_t(255 - value); });
      if (record->outRect.top == 0) {
        plugin::set_rect(record->inRect, half, 0, record->imageSize.v, record->imageSize.h);
        record->outRect = record->inRect;
      } else {
        plugin::clear_tiles(*record);
      }
      break;
    case filterSelectorFinish:
      plugin::clear_tiles(*record);
      break;
    default:
      break;
  }
  if (failsHere) *result = std::int16_t(std::atoi(fail.c_str() + 2));
}
