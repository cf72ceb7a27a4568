// Text to double as strtod reads it in the "C" locale.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <utility>

#include "qnutil/qnutil.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The value and its sign bit as strtod gives them (any NaN for a NaN).
void expect_reads(const char* text, double expected) {
  const double value = QnUtil_StringToDouble(text);
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(value)) << text;
  } else {
    EXPECT_EQ(value, expected) << '"' << text << '"';
    EXPECT_EQ(std::signbit(value), std::signbit(expected)) << text;
  }
}

TEST(StringToDouble, ReadsLikeStrtod) {
  for (const char* text : {"", "abc", "+-1", "- 1", "0x10", "0.0000001e-320"})
    expect_reads(text, 0.0);
  for (const char* text : {"-0", "-1e-400"}) expect_reads(text, -0.0);
  for (const char* text : {"1e400", "123456789e305", "infinity"}) expect_reads(text, kInf);
  for (const char* text : {"nan", " -NaN(123)"}) expect_reads(text, kNaN);
  const std::pair<const char*, double> rows[] = {
      {"1.5", 1.5}, {".5", 0.5},  {"5.", 5.0},    {"1e3", 1000.0}, {"1E-2", 0.01},
      {"1e", 1.0},  {"1,5", 1.0}, {"2.5D3", 2.5}, {"0.1", 0.1},    {"-2.25xyz", -2.25}};
  for (const auto& [text, expected] : rows) expect_reads(text, expected);
  expect_reads("  \t\n1000e-326", 1e-323);
  expect_reads("0.00001e309", 1e304);
  expect_reads("4.9406564584124654e-324", 5e-324);
}

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
