// Degree trigonometry, guarded division and the sign function.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qnutil/qnutil.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(DegreeTrigonometry, SinAndCosTakeDegrees) {
  EXPECT_NEAR(sin_deg(30.0), 0.5, 1e-15);
  EXPECT_NEAR(sin_deg(90.0), 1.0, 1e-15);
  EXPECT_NEAR(sin_deg(-270.0), 1.0, 1e-15);
  EXPECT_NEAR(cos_deg(60.0), 0.5, 1e-15);
  EXPECT_NEAR(cos_deg(180.0), -1.0, 1e-15);
  EXPECT_EQ(sin_deg(0.0), 0.0);
  EXPECT_TRUE(std::isnan(sin_deg(kInf)));
}

TEST(DegreeTrigonometry, AcosScalesItsArgumentAndAnswersInRadians) {
  EXPECT_NEAR(acos_deg(1.0), 1.5533421480573115, 1e-15);
  EXPECT_NEAR(acos_deg(0.0), 1.5707963267948966, 1e-15);
  EXPECT_NEAR(acos_deg(57.29577951308232), 0.0, 1e-7);
  EXPECT_TRUE(std::isnan(acos_deg(57.3)));
  EXPECT_TRUE(std::isnan(acos_deg(-58.0)));
}

TEST(DegreeTrigonometry, ArcTangentsAnswerInDegrees) {
  EXPECT_NEAR(atan_deg(1.0), 45.0, 1e-13);
  EXPECT_NEAR(atan_deg(-kInf), -90.0, 1e-13);
  EXPECT_NEAR(atan2_deg(1.0, -1.0), 135.0, 1e-13);
  EXPECT_NEAR(atan2_deg(-1.0, 0.0), -90.0, 1e-13);
  EXPECT_EQ(atan2_deg(0.0, 1.0), 0.0);
  EXPECT_TRUE(std::isnan(atan2_deg(kNaN, 1.0)));
}

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
    ::testing::Values(DivisionCase{1, 0, 0, 0}, DivisionCase{1, -0.0, 0, 0}, DivisionCase{0, 0, 0, 0},
                      DivisionCase{kInf, 0, 0, 0}, DivisionCase{kNaN, 0, 0, 0},
                      DivisionCase{6, 3, 2, 2}, DivisionCase{1, 4, 0.25, 0.25},
                      DivisionCase{-1, kInf, -0.0, -0.0f}, DivisionCase{1, kNaN, kNaN, 0},
                      // 1e-300 is zero in single precision: guarded there only.
                      DivisionCase{1e-300, 1e-300, 1, 0}, DivisionCase{1, 1e-300, 1 / 1e-300, 0}));

// Single precision: the quotient is rounded to float, not computed in double.
TEST(GuardedDivision, FdivDividesInSinglePrecision) {
  EXPECT_EQ(qnutil_fdiv(1.0f, 3.0f), 1.0f / 3.0f);
  EXPECT_EQ(qnutil_fdiv(1e30f, 1e-30f), std::numeric_limits<float>::infinity());
  EXPECT_EQ(qnutil_fdiv(1.0f, 1e-45f), std::numeric_limits<float>::infinity());
  EXPECT_EQ(qnutil_fdiv(3.0f, -0.0f), 0.0f);
}

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

}  // namespace
