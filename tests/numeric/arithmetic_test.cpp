// Guarded division, the sign function, rounding to decimal positions and
// truncation to 32-bit integers.
#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>

#include "qnutil/qnutil.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct DivisionCase {
  double a, b, quotient;  // quotient in double precision
  float single;           // the same division in single precision
};

class GuardedDivisionTest : public ::testing::TestWithParam<DivisionCase> {};

TEST_P(GuardedDivisionTest, DividesUnlessTheDivisorIsZero) {
  const DivisionCase& c = GetParam();
  const double d = ddiv(c.a, c.b);
  const float f = qnutil_fdiv(static_cast<float>(c.a), static_cast<float>(c.b));
  if (std::isnan(c.quotient)) {
    EXPECT_TRUE(std::isnan(d));
    EXPECT_TRUE(std::isnan(f));
    return;
  }
  EXPECT_EQ(d, c.quotient);
  EXPECT_EQ(std::signbit(d), std::signbit(c.quotient));
  EXPECT_EQ(f, c.single);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GuardedDivisionTest,
    ::testing::Values(DivisionCase{1, 0, 0, 0}, DivisionCase{1, -0.0, 0, 0},
                      DivisionCase{kNaN, 0, 0, 0}, DivisionCase{6, 3, 2, 2},
                      DivisionCase{1, 4, 0.25, 0.25}, DivisionCase{-1, kInf, -0.0, -0.0f},
                      DivisionCase{1, kNaN, kNaN, 0},
                      // 1e-300 is zero in single precision: guarded there only.
                      DivisionCase{1e-300, 1e-300, 1, 0}, DivisionCase{1, 1e-300, 1 / 1e-300, 0}));

TEST(Sign, IsMinusOneZeroOrOne) {
  EXPECT_EQ(fsgn(-3.5), -1.0);
  EXPECT_EQ(fsgn(-kInf), -1.0);
  EXPECT_EQ(fsgn(1e-320), 1.0);
  EXPECT_EQ(fsgn(kInf), 1.0);
  EXPECT_EQ(fsgn(0.0), 0.0);
  EXPECT_EQ(fsgn(-0.0), 0.0);
  EXPECT_FALSE(std::signbit(fsgn(-0.0)));
  EXPECT_EQ(fsgn(kNaN), 0.0);
}

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
                      RoundCase{-0.5, 0, 0.0}, RoundCase{1249.9, 2, 1200.0},
                      RoundCase{1250.0, 2, 1300.0}, RoundCase{-1250.0, 2, -1200.0},
                      RoundCase{0.0001234, -5, 0.00012}, RoundCase{1e300, 300, 1e300},
                      RoundCase{123.456, -1, 123.5}));

struct TruncateCase {
  double x;
  long expected;
};

class LRoundTest : public ::testing::TestWithParam<TruncateCase> {};

TEST_P(LRoundTest, DropsTheFractionTowardZero) {
  EXPECT_EQ(QnUtil_LRound(GetParam().x), GetParam().expected) << GetParam().x;
}

constexpr long kMin32 = -2147483647L - 1;  // also the integer-indefinite value

INSTANTIATE_TEST_SUITE_P(
    Cases, LRoundTest,
    ::testing::Values(TruncateCase{2.9, 2}, TruncateCase{-2.9, -2}, TruncateCase{-0.999, 0},
                      TruncateCase{-0.0, 0}, TruncateCase{2147483647.0, 2147483647L},
                      TruncateCase{2147483647.99, 2147483647L}, TruncateCase{-2147483648.0, kMin32},
                      // Outside the 32-bit range: the integer-indefinite value.
                      TruncateCase{2147483648.0, kMin32}, TruncateCase{-2147483649.0, kMin32},
                      TruncateCase{1e20, kMin32}, TruncateCase{kInf, kMin32},
                      TruncateCase{kNaN, kMin32}));

}  // namespace
