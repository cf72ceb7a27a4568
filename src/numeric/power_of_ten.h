// Powers of ten as the correctly rounded doubles nearest to them. The C
// library's pow() is not correctly rounded everywhere (MinGW's pow(10, -2)
// is three units in the last place off), and rounding to decimal positions
// must give the same result on every target.
#pragma once

namespace qnutil::numeric {

// The double nearest to 10^exponent: 0.0 below 1e-323 and +infinity above
// 1e308, as a correctly rounded pow(10, exponent) gives.
double power_of_ten(int exponent) noexcept;

}  // namespace qnutil::numeric
