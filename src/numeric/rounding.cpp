#include <cmath>
#include <cstdint>

#include "numeric/power_of_ten.h"
#include "qnutil/numeric.h"

namespace {

double round_half_up(double x, int p) noexcept {
  const double scale = qnutil::numeric::power_of_ten(p);
  return std::floor(x / scale + 0.5) * scale;
}

}  // namespace

extern "C" QNUTIL_API double QNUTIL_CALL QnUtil_PRound(double x, int p) {
  return round_half_up(x, p);
}

extern "C" QNUTIL_API float QNUTIL_CALL QnUtil_FRound(float x, int p) {
  return static_cast<float>(round_half_up(static_cast<double>(x), p));
}

// Truncation as the x86 conversion instruction does it, on every platform:
// anything whose integer part does not fit 32 bits (and NaN) becomes the
// integer-indefinite value instead of undefined behaviour.
extern "C" QNUTIL_API long QNUTIL_CALL QnUtil_LRound(double x) {
  constexpr double kBelowRange = -2147483649.0;  // INT32_MIN - 1
  constexpr double kAboveRange = 2147483648.0;   // INT32_MAX + 1
  if (x > kBelowRange && x < kAboveRange) return static_cast<std::int32_t>(x);
  return INT32_MIN;
}
