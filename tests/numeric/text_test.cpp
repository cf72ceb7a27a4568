// Position searches, trimming in place and the UTF-8 conversions (single-byte
// code page; the double-byte cases run under Wine with a Japanese code page).
// A byte followed by a letter is written as an octal escape, which ends
// after three digits.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "qnutil/qnutil.h"

namespace {

struct SearchCase {
  const char* s;
  const char* sub;  // QnUtil_StrIChr looks for its first byte
  int expected;
  bool by_char = false;
};

class SearchTest : public ::testing::TestWithParam<SearchCase> {};

TEST_P(SearchTest, FindsTheByteIndex) {
  const SearchCase& c = GetParam();
  EXPECT_EQ(c.by_char ? QnUtil_StrIChr(c.s, c.sub[0]) : QnUtil_StrIPos(c.s, c.sub), c.expected)
      << c.s << " / " << c.sub;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SearchTest,
    ::testing::Values(SearchCase{"xabc", "abc", 1}, SearchCase{"Abc", "abc", -1},
                      SearchCase{"abc", "abcd", -1}, SearchCase{"abc", "", 0},
                      SearchCase{"", "a", -1}, SearchCase{"Stra\337e", "\xDF", 4},
                      SearchCase{"aaab", "aab", 1}, SearchCase{"wall@2@height", "@", 4, true},
                      SearchCase{"abc", "B", -1, true}, SearchCase{"Gr\366\337e", "\xDF", 3, true},
                      SearchCase{"abc", "", 3, true}));  // the terminator, as strchr finds it

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
                      TrimCase{"NoBreakSpaceStays", QnUtil_StrTrim, "\xA0 x \xA0", "\xA0 x \xA0"}),
    [](const ::testing::TestParamInfo<TrimCase>& info) { return std::string(info.param.name); });

constexpr char kUntouched = '\x55';

struct FromUtf8Case {
  const char* utf8;
  std::string expected;  // may hold zero bytes (low bytes of surrogates)
};

class ConvertFromUtf8Test : public ::testing::TestWithParam<FromUtf8Case> {};

TEST_P(ConvertFromUtf8Test, KeepsTheLowByteOfEachUtf16Unit) {
  const FromUtf8Case& c = GetParam();
  char out[32];
  std::memset(out, kUntouched, sizeof out);
  ASSERT_EQ(ConvertFromUTF8(c.utf8, out), 1);
  EXPECT_EQ(std::string(out, c.expected.size()), c.expected);
  EXPECT_EQ(out[c.expected.size()], '\0');
  EXPECT_EQ(out[c.expected.size() + 1], kUntouched);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ConvertFromUtf8Test,
    ::testing::Values(FromUtf8Case{"abc", "abc"}, FromUtf8Case{"\xC3\xA4", "\xE4"},
                      FromUtf8Case{"\xE2\x82\xAC", "\xAC"},                          // U+20AC
                      FromUtf8Case{"x\xC5\x93y", "x\x53y"},                          // U+0153
                      FromUtf8Case{"\xF0\x9F\x98\x80", std::string("\x3D\x00", 2)},  // D83D DE00
                      FromUtf8Case{"\xC3", "\xFD"},          // truncated: U+FFFD
                      FromUtf8Case{"\xC0\xAF", "\xFD\xFD"},  // overlong
                      // A surrogate: the lead and the checked byte, then a stray one.
                      FromUtf8Case{"\xED\xA0\x80", "\xFD\xFD"},
                      FromUtf8Case{"\342\202A", "\375A"},                // cut short
                      FromUtf8Case{"\xF4\x90\x80\x80", "\xFD\xFD\xFD"},  // above U+10FFFF
                      FromUtf8Case{"a\xF0\x9F", "a\xFD"}));              // cut off by the end

// Text of the upper half survives the round trip through UTF-8.
TEST(ConvertToUtf8, RoundTripsThroughConvertFromUtf8) {
  const std::string ansi = "K\374che \xC4\xD6\xDC\xE9\xA7\xB0 90\xB0";
  char utf8[64], back[64];
  ASSERT_EQ(ConvertToUTF8(ansi.c_str(), utf8), 1);
  ASSERT_EQ(ConvertFromUTF8(utf8, back), 1);
  EXPECT_EQ(std::string(back), ansi);
}

}  // namespace
