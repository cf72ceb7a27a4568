#include "qnutil/common.h"

#define QNUTIL_STRINGIFY_(x) #x
#define QNUTIL_STRINGIFY(x) QNUTIL_STRINGIFY_(x)

extern "C" QNUTIL_API long QNUTIL_CALL QnUtil_GetVersion(void) { return QNUTIL_VERSION; }

extern "C" QNUTIL_API const char* QNUTIL_CALL QnUtil_GetVersionString(void) {
  return QNUTIL_STRINGIFY(QNUTIL_VERSION_MAJOR) "." QNUTIL_STRINGIFY(
      QNUTIL_VERSION_MINOR) "." QNUTIL_STRINGIFY(QNUTIL_VERSION_PATCH);
}
