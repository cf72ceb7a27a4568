// Keeps a parameters handle: each parameters step adds one to the counter
// it holds, and the filter adds the counter to every colour byte of the image.
#include "plugin_support.h"

namespace {

std::int32_t* counter(FilterRecord& record) {
  return reinterpret_cast<std::int32_t*>(record.handleProcs->lockProc(record.parameters, false));
}

}  // namespace

QNUTIL_PLUGIN_ENTRY {
  switch (selector) {
    case filterSelectorParameters:
      if (!record->parameters)
        record->parameters = record->handleProcs->newProc(sizeof(std::int32_t));
      ++*counter(*record);
      record->handleProcs->unlockProc(record->parameters);
      break;
    case filterSelectorStart:
      // Repeating without a kept handle would be a host error.
      if (!record->parameters) {
        *result = filterBadParameters;
        break;
      }
      plugin::set_rect(record->inRect, 0, 0, record->imageSize.v, record->imageSize.h);
      record->outRect = record->inRect;
      record->inLoPlane = record->outLoPlane = 0;
      record->inHiPlane = record->outHiPlane = 2;
      break;
    case filterSelectorContinue: {
      const std::int32_t added = *counter(*record);
      record->handleProcs->unlockProc(record->parameters);
      plugin::map_tile(*record,
                       [added](std::uint8_t value) { return std::uint8_t(value + added); });
      plugin::clear_tiles(*record);
      break;
    }
    default: break;
  }
}
