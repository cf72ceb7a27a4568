#include <cmath>

#include "qnutil/numeric.h"

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kDegreesPerRadian = 57.29577951308232;

}  // namespace

extern "C" QNUTIL_API double QNUTIL_CALL sin_deg(double degrees) {
  return std::sin(degrees * kRadiansPerDegree);
}

extern "C" QNUTIL_API double QNUTIL_CALL cos_deg(double degrees) {
  return std::cos(degrees * kRadiansPerDegree);
}

// Scales its argument like an angle and answers in radians: the host's
// callers were written against this, so it stays unlike atan_deg.
extern "C" QNUTIL_API double QNUTIL_CALL acos_deg(double x) {
  return std::acos(x * kRadiansPerDegree);
}

extern "C" QNUTIL_API double QNUTIL_CALL atan_deg(double x) {
  return std::atan(x) * kDegreesPerRadian;
}

extern "C" QNUTIL_API double QNUTIL_CALL atan2_deg(double y, double x) {
  return std::atan2(y, x) * kDegreesPerRadian;
}
