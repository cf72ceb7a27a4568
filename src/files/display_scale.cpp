// Per-monitor DPI awareness and the desktop size corrected for scaling.
#include <cstdint>

#include "platform/display_scale.h"
#include "qnutil/system.h"

namespace {

namespace platform = qnutil::platform;

// Process-wide, set by MySetProcessDpiAwareness at start-up.
bool g_scaling_available = false;

// Wide desktops are reported at their device resolution; with scaling
// above 110 % the size grows by (factor + 10) per cent, the added 10 being
// the host's own allowance (125 % gives 1.35, 150 % gives 1.6). Computed in
// integers so that the truncation is exact for every factor.
int scaled(int size, int factor) {
  if (factor <= 110) return size;
  return static_cast<int>(static_cast<std::int64_t>(size) * (factor + 10) / 100);
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL MySetProcessDpiAwareness(int awareness) {
  int result = 0;
  if (!platform::set_process_dpi_awareness(awareness, result, g_scaling_available)) return 0;
  return result;
}

extern "C" QNUTIL_API int QNUTIL_CALL ProcessDpiAwarenessAvailable(void) {
  return g_scaling_available ? 1 : 0;
}

extern "C" QNUTIL_API int QNUTIL_CALL MyGetSystemMetrics(int index) {
  enum {
    kWidth = 0,
    kHeight = 1,
    kVirtualLeft = 76,
    kVirtualTop = 77,
    kVirtualWidth = 78,
    kVirtualHeight = 79
  };
  if (index == kVirtualLeft || index == kVirtualTop) return platform::system_metric(index);
  const bool wants_width = index == kWidth || index == kVirtualWidth;
  if (!wants_width && index != kHeight && index != kVirtualHeight) return -1;
  platform::DesktopFacts facts;
  if (!platform::desktop_facts(g_scaling_available, facts)) return -1;
  if (facts.device_width <= 2000) return wants_width ? facts.window_right : facts.window_bottom;
  return scaled(wants_width ? facts.device_width : facts.device_height, facts.scale_factor);
}
