// Guarded division, the sign function, rounding to decimal positions and
// truncation to 32-bit integers.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <limits>

#include "qnutil/qnutil.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// 1e-300 is zero in single precision: guarded there only.
TEST(GuardedDivision, DividesUnlessTheDivisorIsZero) {
  const struct {
    double a, b, quotient;  // quotient in double precision
    float single;           // the same division in single precision
  } rows[] = {{1, 0, 0, 0},       {1, -0.0, 0, 0},        {kNaN, 0, 0, 0},
              {6, 3, 2, 2},       {1, 4, 0.25, 0.25},     {-1, kInf, -0.0, -0.0f},
              {1, kNaN, kNaN, 0}, {1e-300, 1e-300, 1, 0}, {1, 1e-300, 1 / 1e-300, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    const double d = ddiv(row.a, row.b);
    const float f = qnutil_fdiv(static_cast<float>(row.a), static_cast<float>(row.b));
    if (std::isnan(row.quotient)) {
      EXPECT_TRUE(std::isnan(d));
      EXPECT_TRUE(std::isnan(f));
      continue;
    }
    EXPECT_EQ(d, row.quotient);
    EXPECT_EQ(std::signbit(d), std::signbit(row.quotient));
    EXPECT_EQ(f, row.single);
  }
}

// Zero of either sign and NaN give +0.
TEST(Sign, IsMinusOneZeroOrOne) {
  const std::pair<double, double> rows[] = {{-3.5, -1.0}, {-kInf, -1.0}, {1e-320, 1.0}, {kInf, 1.0},
                                            {0.0, 0.0},   {-0.0, 0.0},   {kNaN, 0.0}};
  for (const auto& [x, sign] : rows) {
    EXPECT_EQ(fsgn(x), sign) << x;
    EXPECT_EQ(std::signbit(fsgn(x)), std::signbit(sign)) << x;
  }
}

TEST(PRound, RoundsHalfUpAtTheDecimalPosition) {
  const struct {
    double x;
    int p;
    double expected;
  } rows[] = {
      {2.345, -2, 2.35},   {2.5, 0, 3.0},       {-2.5, 0, -2.0},       {-0.5, 0, 0.0},
      {1249.9, 2, 1200.0}, {1250.0, 2, 1300.0}, {-1250.0, 2, -1200.0}, {0.0001234, -5, 0.00012},
      {1e300, 300, 1e300}, {123.456, -1, 123.5}};
  for (const auto& row : rows)
    EXPECT_DOUBLE_EQ(QnUtil_PRound(row.x, row.p), row.expected) << row.x << " at 10^" << row.p;
}

TEST(LRound, DropsTheFractionTowardZero) {
  constexpr long kMin32 = -2147483647L - 1;
  const std::pair<double, long> rows[] = {{2.9, 2},
                                          {-2.9, -2},
                                          {-0.999, 0},
                                          {-0.0, 0},
                                          {2147483647.0, 2147483647L},
                                          {2147483647.99, 2147483647L},
                                          {-2147483648.0, kMin32}};
  for (const auto& [x, expected] : rows) EXPECT_EQ(QnUtil_LRound(x), expected) << x;
  // Outside the 32-bit range: the integer-indefinite value, kMin32 again.
  for (const double x : {2147483648.0, -2147483649.0, 1e20, kInf, kNaN})
    EXPECT_EQ(QnUtil_LRound(x), kMin32) << x;
}

}  // namespace
