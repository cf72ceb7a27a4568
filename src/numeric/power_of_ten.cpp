#include "numeric/power_of_ten.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <limits>

namespace qnutil::numeric {
namespace {

constexpr int kSmallest = -323;  // 1e-324 rounds to zero
constexpr int kLargest = 308;    // 1e309 overflows

using Table = std::array<double, kLargest - kSmallest + 1>;

// Decimal literals are read correctly rounded by std::from_chars on every
// target (unlike pow), so each entry is the exact nearest double.
Table make_table() noexcept {
  Table table{};
  for (int exponent = kSmallest; exponent <= kLargest; ++exponent) {
    char text[8];
    const int length = std::snprintf(text, sizeof text, "1e%d", exponent);
    std::from_chars(text, text + length, table[static_cast<std::size_t>(exponent - kSmallest)]);
  }
  return table;
}

}  // namespace

double power_of_ten(int exponent) noexcept {
  static const Table table = make_table();
  if (exponent < kSmallest) return 0.0;
  if (exponent > kLargest) return std::numeric_limits<double>::infinity();
  return table[static_cast<std::size_t>(exponent - kSmallest)];
}

}  // namespace qnutil::numeric
