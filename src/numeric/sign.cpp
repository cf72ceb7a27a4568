#include "qnutil/numeric.h"

extern "C" QNUTIL_API double QNUTIL_CALL fsgn(double x) {
  if (x < 0.0) return -1.0;
  if (x > 0.0) return 1.0;
  return 0.0;
}
