#include "platform/display_scale.h"

namespace qnutil::platform {

// A library without a display connection has nothing to scale.
bool set_process_dpi_awareness(int, int&, bool& scaling_available) {
  scaling_available = false;
  return false;
}

bool desktop_facts(bool, DesktopFacts&) { return false; }

int system_metric(int) { return -1; }

}  // namespace qnutil::platform
