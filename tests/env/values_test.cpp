// Typed puts and gets and the value scanner.
#include <climits>
#include <cstring>

#include "env_fixture.h"

using namespace env_test;

namespace {

// Each text with what env_get_long and env_get_double make of it: the
// result (1, the envId; -5 or -7) and, on success, the value.
TEST(EnvScanner, ParsesExactlyOneNumber) {
  const struct {
    const char* text;
    int long_result;
    long long_value;
    int double_result;
    double double_value;
  } rows[] = {{"12", 1, 12, 1, 12.0},      {" \t+12 \t", 1, 12, 1, 12.0},
              {"-3\n", 1, -3, 1, -3.0},    {"7\r", 1, 7, 1, 7.0},
              {"7\n\n", -5, 0, -5, 0},     {"1,2", -7, 0, -7, 0},
              {"abc", -5, 0, -5, 0},       {"", -5, 0, -5, 0},
              {"1.5", -5, 0, 1, 1.5},      {"2.5E2", -5, 0, 1, 250.0},
              {"2.5e-1", -5, 0, 1, 0.25},  {"1.5D3", -5, 0, 1, 1500.0},
              {"-1d+2", -5, 0, 1, -100.0}, {"5.", -5, 0, 1, 5.0},
              {".5", -5, 0, -5, 0},        {"1e", -5, 0, -5, 0},
              {"1 2", -5, 0, -5, 0},       {"1,", -5, 0, -5, 0},
              {"--1", -5, 0, -5, 0},       {"0x10", -5, 0, -5, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    Env env;
    ASSERT_EQ(env_put(env, "S", "v", row.text), ENV_OK);
    long l = -99;
    EXPECT_EQ(env_get_long(env, "S", "v", 1, &l), row.long_result);
    if (row.long_result == 1) {
      EXPECT_EQ(l, row.long_value);
    }
    double d = -99;
    EXPECT_EQ(env_get_double(env, "S", "v", 1, &d), row.double_result);
    if (row.double_result == 1) {
      EXPECT_EQ(d, row.double_value);
    }
  }
}

// Lists join with commas; a failed get reports a count of 0.
TEST(EnvValues, ListsRoundTripWithinCapacity) {
  Env env;
  const long longs[] = {1, -2, 3};
  ASSERT_EQ(env_put_longs(env, "S", "l", 3, longs), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "l"), "1,-2,3");
  EXPECT_EQ(env_put_longs(env, "S", "l", 0, longs), ENV_ERROR);
  EXPECT_EQ(env_put_longs(env, "S", "l", 1, nullptr), ENV_ERROR);
  const double doubles[] = {0.5, 1e10};
  ASSERT_EQ(env_put_doubles(env, "S", "d", 2, doubles), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "d"), "0.5,1e+10");
  double back[2];
  int count = 2;
  EXPECT_EQ(env_get_doubles(env, "S", "d", 1, &count, back), 1);
  EXPECT_EQ(back[1], 1e10);
  const char* strings[] = {"ab", "c d", "e"};
  ASSERT_EQ(env_put_strings(env, "S", "s", 3, strings), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "s"), "ab,c d,e");

  put_all(env, {{"S", "v", "1, 2 ,3"}, {"S", "bad", "1,x"}});
  // "result:count values..."
  const auto longs_of = [&env](const char* path, int capacity) {
    long values[3] = {};
    int n = capacity;
    const int result = env_get_longs(env, "S", path, 1, &n, values);
    std::string out = std::to_string(result) + ":" + std::to_string(n);
    for (int i = 0; i < n; ++i) out += " " + std::to_string(values[i]);
    return out;
  };
  EXPECT_EQ(longs_of("v", 3), "1:3 1 2 3");
  EXPECT_EQ(longs_of("l", 3), "1:3 1 -2 3");
  EXPECT_EQ(longs_of("v", 2), "-7:0");
  EXPECT_EQ(longs_of("none", 3), "-4:0");
  EXPECT_EQ(longs_of("bad", 3), "-5:0");
}

TEST(EnvValues, Strings) {
  Env env;
  put_all(env, {{"S", "s", " ab , C9\t,x "}, {"S", "t", "a-b"}});
  char a[4], b[4], c[4];
  char* bufs[] = {a, b, c};
  int count = 3;
  EXPECT_EQ(env_get_strings(env, "S", "s", 1, &count, 4, bufs), 1);
  EXPECT_EQ(std::to_string(count) + a + "|" + b + "|" + c, "3ab|C9|x");
  count = 3;
  EXPECT_EQ(env_get_strings(env, "S", "s", 1, &count, 2, bufs), ENV_TOO_SMALL);
  EXPECT_EQ(count, 0);
  char* with_null[] = {a, nullptr, c};
  count = 3;
  EXPECT_EQ(env_get_strings(env, "S", "s", 1, &count, 4, with_null), ENV_TOO_SMALL);
  count = 3;
  EXPECT_EQ(env_get_strings(env, "S", "t", 1, &count, 4, bufs), ENV_SYNTAX);
}

TEST(EnvValues, PutFormat) {
  Env env;
  ASSERT_EQ(env_put_format(env, "S", "f", "%s-%03d", "x", 7), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "f"), "x-007");
  EXPECT_EQ(env_put_format(env, "S", "g", "%s", std::string(1024, 'y').c_str()), ENV_ERROR);
  EXPECT_EQ(env_put_format(env, "S", "g", "%s", std::string(1023, 'y').c_str()), ENV_OK);
  EXPECT_EQ(env_put(env, "S", "n", nullptr), ENV_ERROR);
}

}  // namespace
