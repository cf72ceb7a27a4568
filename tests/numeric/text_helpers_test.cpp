// Position searches and trimming in place (single-byte code page; the
// double-byte cases run under Wine with a Japanese code page).
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "qnutil/qnutil.h"

namespace {

struct SearchCase {
  const char* s;
  const char* sub;
  int expected;
};

class StrIPosTest : public ::testing::TestWithParam<SearchCase> {};

TEST_P(StrIPosTest, FindsTheByteIndex) {
  EXPECT_EQ(QnUtil_StrIPos(GetParam().s, GetParam().sub), GetParam().expected)
      << GetParam().s << " / " << GetParam().sub;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StrIPosTest,
    ::testing::Values(SearchCase{"xabc", "abc", 1}, SearchCase{"Abc", "abc", -1},
                      SearchCase{"abcabc", "bc", 1}, SearchCase{"abc", "abcd", -1},
                      SearchCase{"abc", "", 0}, SearchCase{"", "", 0}, SearchCase{"", "a", -1},
                      SearchCase{"Stra\xDF" "e", "\xDF", 4}, SearchCase{"aaab", "aab", 1}));

TEST(StrIChr, FindsTheFirstOccurrence) {
  EXPECT_EQ(QnUtil_StrIChr("wall@2@height", '@'), 4);
  EXPECT_EQ(QnUtil_StrIChr("abc", 'B'), -1);
  EXPECT_EQ(QnUtil_StrIChr("", 'a'), -1);
  EXPECT_EQ(QnUtil_StrIChr("Gr\xF6\xDF" "e", '\xDF'), 3);
  EXPECT_EQ(QnUtil_StrIChr("abc", '\0'), 3);
}

TEST(TextHelpers, NullTextIsRefused) {
  EXPECT_EQ(QnUtil_StrIChr(nullptr, 'a'), -1);
  EXPECT_EQ(QnUtil_StrIPos(nullptr, "a"), -1);
  EXPECT_EQ(QnUtil_StrIPos("a", nullptr), -1);
  EXPECT_EQ(QnUtil_StrTrim(nullptr), nullptr);
  EXPECT_EQ(ConvertFromUTF8(nullptr, nullptr), 0);
  EXPECT_EQ(ConvertToUTF8(nullptr, nullptr), 0);
}

using Trim = char* (*)(char*);

struct TrimCase {
  const char* name;
  Trim trim;
  const char* text;
  const char* expected;
};

class TrimTest : public ::testing::TestWithParam<TrimCase> {};

// The result is returned in place and the rest of the original extent is
// filled with terminators; the byte after the original text is untouched.
TEST_P(TrimTest, TrimsInPlaceAndPadsWithTerminators) {
  const TrimCase& c = GetParam();
  const std::size_t length = std::strlen(c.text);
  char buffer[64];
  std::memset(buffer, 'X', sizeof buffer);
  std::memcpy(buffer, c.text, length + 1);
  buffer[length] = '\0';
  EXPECT_EQ(c.trim(buffer), buffer);
  EXPECT_STREQ(buffer, c.expected);
  for (std::size_t i = std::strlen(c.expected); i <= length; ++i) EXPECT_EQ(buffer[i], '\0') << i;
  EXPECT_EQ(buffer[length + 1], 'X');
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TrimTest,
    ::testing::Values(TrimCase{"RTrimTrimsTheStart", QnUtil_StrRTrim, "  a  ", "a  "},
                      TrimCase{"LTrim", QnUtil_StrLTrim, "  a  ", "a  "},
                      TrimCase{"Trim", QnUtil_StrTrim, "  a  ", "a"},
                      TrimCase{"TrimControls", QnUtil_StrTrim, "\t\r\n\v\f a b \n", "a b"},
                      TrimCase{"TrimAllBlank", QnUtil_StrTrim, " \t ", ""},
                      TrimCase{"LTrimAllBlank", QnUtil_StrLTrim, "   ", ""},
                      TrimCase{"TrimEmpty", QnUtil_StrTrim, "", ""},
                      TrimCase{"TrimNothing", QnUtil_StrTrim, "a", "a"},
                      TrimCase{"NoBreakSpaceStays", QnUtil_StrTrim, "\xA0 x \xA0", "\xA0 x \xA0"},
                      TrimCase{"TrimInner", QnUtil_StrTrim, " x  y ", "x  y"}),
    [](const ::testing::TestParamInfo<TrimCase>& info) { return std::string(info.param.name); });

}  // namespace
