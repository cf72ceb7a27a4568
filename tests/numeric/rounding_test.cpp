// Rounding to decimal positions and truncation to 32-bit integers.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qnutil/qnutil.h"

namespace {

struct RoundCase {
  double x;
  int p;
  double expected;
};

class PRoundTest : public ::testing::TestWithParam<RoundCase> {};

TEST_P(PRoundTest, RoundsHalfUpAtTheDecimalPosition) {
  const RoundCase& c = GetParam();
  EXPECT_DOUBLE_EQ(QnUtil_PRound(c.x, c.p), c.expected) << c.x << " at 10^" << c.p;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PRoundTest,
    ::testing::Values(RoundCase{2.345, -2, 2.35}, RoundCase{2.5, 0, 3.0}, RoundCase{-2.5, 0, -2.0},
                      RoundCase{-0.5, 0, 0.0}, RoundCase{-0.51, 0, -1.0}, RoundCase{1249.9, 2, 1200.0},
                      RoundCase{1250.0, 2, 1300.0}, RoundCase{-1250.0, 2, -1200.0},
                      RoundCase{0.0001234, -5, 0.00012}, RoundCase{7.0, 0, 7.0},
                      RoundCase{1e300, 300, 1e300}, RoundCase{123.456, -1, 123.5}));

// The scale is the correctly rounded power of ten, so results are exact to
// the bit, identical on every target (MinGW's pow would differ here).
TEST(PRound, UsesCorrectlyRoundedPowersOfTen) {
  EXPECT_EQ(QnUtil_PRound(0.125, -2), std::floor(0.125 / 0.01 + 0.5) * 0.01);
  EXPECT_EQ(QnUtil_PRound(1.0, -2), 1.0);
  for (int p = -22; p <= 22; ++p) {
    const double scale = std::stod("1e" + std::to_string(p));
    EXPECT_EQ(QnUtil_PRound(3.0 * scale, p), 3.0 * scale) << p;
  }
}

TEST(PRound, ExtremeExponentsBehaveAsPowWould) {
  EXPECT_TRUE(std::isnan(QnUtil_PRound(1.0, 400)));   // 0 * inf
  EXPECT_TRUE(std::isnan(QnUtil_PRound(1.0, -400)));  // inf * 0
  EXPECT_EQ(QnUtil_PRound(4e-324, -322), 0.0);
  EXPECT_EQ(QnUtil_PRound(5e-324, -323), 1e-323);  // exactly half of 1e-323 rounds up
  EXPECT_TRUE(std::isnan(QnUtil_PRound(std::nan(""), 0)));
  EXPECT_EQ(QnUtil_PRound(std::numeric_limits<double>::infinity(), 0),
            std::numeric_limits<double>::infinity());
}

TEST(FRound, ComputesInDoubleAndNarrowsAtTheEnd) {
  EXPECT_EQ(QnUtil_FRound(2.345f, -2), static_cast<float>(std::floor(2.345f / 0.01 + 0.5) * 0.01));
  EXPECT_FLOAT_EQ(QnUtil_FRound(2.345f, -2), 2.35f);
  EXPECT_EQ(QnUtil_FRound(-2.5f, 0), -2.0f);
  EXPECT_EQ(QnUtil_FRound(16777217.0f, 0), 16777216.0f);
  EXPECT_EQ(QnUtil_FRound(1234.0f, 2), 1200.0f);
}

struct TruncateCase {
  double x;
  long expected;
};

class LRoundTest : public ::testing::TestWithParam<TruncateCase> {};

TEST_P(LRoundTest, DropsTheFractionTowardZero) {
  EXPECT_EQ(QnUtil_LRound(GetParam().x), GetParam().expected) << GetParam().x;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LRoundTest,
    ::testing::Values(TruncateCase{2.9, 2}, TruncateCase{-2.9, -2}, TruncateCase{-0.999, 0},
                      TruncateCase{0.0, 0}, TruncateCase{-0.0, 0},
                      TruncateCase{2147483647.0, 2147483647L}, TruncateCase{2147483647.99, 2147483647L},
                      TruncateCase{-2147483648.0, -2147483647L - 1},
                      TruncateCase{-2147483648.99, -2147483647L - 1},
                      // Outside the 32-bit range: the integer-indefinite value.
                      TruncateCase{2147483648.0, -2147483647L - 1},
                      TruncateCase{-2147483649.0, -2147483647L - 1}, TruncateCase{1e20, -2147483647L - 1},
                      TruncateCase{std::numeric_limits<double>::infinity(), -2147483647L - 1},
                      TruncateCase{-std::numeric_limits<double>::infinity(), -2147483647L - 1},
                      TruncateCase{std::numeric_limits<double>::quiet_NaN(), -2147483647L - 1}));

}  // namespace
