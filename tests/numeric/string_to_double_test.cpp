// Text to double as strtod reads it in the "C" locale.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "qnutil/qnutil.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct ParseCase {
  const char* text;
  double expected;
};

class StringToDoubleTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(StringToDoubleTest, ReadsLikeStrtod) {
  const ParseCase& c = GetParam();
  const double value = QnUtil_StringToDouble(c.text);
  if (std::isnan(c.expected)) {
    EXPECT_TRUE(std::isnan(value)) << c.text;
  } else {
    EXPECT_EQ(value, c.expected) << '"' << c.text << '"';
    EXPECT_EQ(std::signbit(value), std::signbit(c.expected)) << c.text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StringToDoubleTest,
    ::testing::Values(ParseCase{"1.5", 1.5}, ParseCase{"  \t\n-2.25xyz", -2.25},
                      ParseCase{".5", 0.5}, ParseCase{"5.", 5.0}, ParseCase{"1e3", 1000.0},
                      ParseCase{"1E-2", 0.01}, ParseCase{"1e", 1.0}, ParseCase{"2.5D3", 2.5},
                      ParseCase{"", 0.0}, ParseCase{"abc", 0.0}, ParseCase{"+-1", 0.0},
                      ParseCase{"- 1", 0.0}, ParseCase{"-0", -0.0}, ParseCase{"0x10", 0.0},
                      ParseCase{"1e400", kInf}, ParseCase{"123456789e305", kInf},
                      ParseCase{"0.00001e309", 1e304}, ParseCase{"0.0000001e-320", 0.0},
                      ParseCase{"-1e-400", -0.0}, ParseCase{"1000e-326", 1e-323},
                      ParseCase{"infinity", kInf}, ParseCase{"nan", kNaN},
                      ParseCase{" -NaN(123)", kNaN}, ParseCase{"0.1", 0.1},
                      ParseCase{"4.9406564584124654e-324", 5e-324}, ParseCase{"1,5", 1.0}));

// Every shortest round-trip rendering of a random double reads back to the
// same bits (correct rounding, independent of the target's C library).
TEST(StringToDouble, RoundTripsRandomDoubles) {
  std::mt19937_64 random(42);
  for (int i = 0; i < 20000; ++i) {
    const double value = std::bit_cast<double>(static_cast<unsigned long long>(random()));
    if (!std::isfinite(value)) continue;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    EXPECT_EQ(QnUtil_StringToDouble(text), value) << text;
  }
}

}  // namespace
