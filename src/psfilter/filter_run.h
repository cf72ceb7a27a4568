// Running a loaded filter over an image.
#pragma once

#include <cstdint>

#include "qnutil/psfilter_win32.h"

namespace qnutil::psfilter {

struct ApplyRequest {
  bool repeatLast;
  AVPSFilterProgressProc progress;
  std::int32_t userValue;
  const unsigned char* bits;
  std::int32_t width;
  std::int32_t height;
  std::int32_t rowBytes;
};

// Runs parameters (unless repeating kept ones), prepare, start and continue
// steps; stores the result image (a copy of the source the plug-in wrote
// into) in *resultImage, or null when none could be made. Returns the run's
// status: negative for failure, -1 for unusable arguments or no memory.
std::int32_t run_filter(PSFilter_& filter, const ApplyRequest& request,
                        unsigned char** resultImage);

}  // namespace qnutil::psfilter
