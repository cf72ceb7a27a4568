// This unit must not see <math.h>/<cmath>: glibc declares a C function
// fdiv(double, double) there, and the library exports its own fdiv.
#include "qnutil/numeric.h"

extern "C" QNUTIL_API double QNUTIL_CALL ddiv(double a, double b) { return b == 0.0 ? 0.0 : a / b; }

extern "C" QNUTIL_API float QNUTIL_CALL qnutil_fdiv(float a, float b) {
  return b == 0.0f ? 0.0f : a / b;
}
