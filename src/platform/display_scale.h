// Display scaling: per-monitor DPI awareness and the desktop's size.
#pragma once

namespace qnutil::platform {

// Loads the system's DPI functions (Windows: Shcore.dll) while they are
// not all available, and calls SetProcessDpiAwareness(awareness). Returns
// false when that function does not exist; else stores its result.
// `scaling_available` tells whether the scale factor can be queried.
bool set_process_dpi_awareness(int awareness, int& result, bool& scaling_available);

struct DesktopFacts {
  int device_width = 0;  // resolution of the desktop device in pixels
  int device_height = 0;
  int window_right = 0;  // desktop window rectangle
  int window_bottom = 0;
  int scale_factor = 0;  // per cent of the primary device; 0 if unknown
};
// Reads the desktop's facts; the scale factor only when `with_scaling`.
// False where there is no display (POSIX).
bool desktop_facts(bool with_scaling, DesktopFacts& facts);

// The system's own metric `index` (GetSystemMetrics); -1 without display.
int system_metric(int index);

}  // namespace qnutil::platform
