// Position searches, trimming in place and the UTF-8 conversions (single-byte
// code page; the double-byte cases run under Wine with a Japanese code page).
// A byte followed by a letter is written as an octal escape, which ends
// after three digits.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "qnutil/qnutil.h"

namespace {

TEST(Search, FindsTheByteIndex) {
  const struct {
    const char* s;
    const char* sub;  // QnUtil_StrIChr looks for its first byte
    int expected;
    bool by_char = false;
  } rows[] = {{"xabc", "abc", 1},     {"Abc", "abc", -1},
              {"abc", "abcd", -1},    {"abc", "", 0},
              {"", "a", -1},          {"Stra\337e", "\xDF", 4},
              {"aaab", "aab", 1},     {"wall@2@height", "@", 4, true},
              {"abc", "B", -1, true}, {"Gr\366\337e", "\xDF", 3, true},
              {"abc", "", 3, true}};  // the terminator, as strchr finds it
  for (const auto& row : rows)
    EXPECT_EQ(row.by_char ? QnUtil_StrIChr(row.s, row.sub[0]) : QnUtil_StrIPos(row.s, row.sub),
              row.expected)
        << row.s << " / " << row.sub;
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

// The result is returned in place and the rest of the original extent is
// filled with terminators; the byte after the original text is untouched.
TEST(Trim, TrimsInPlaceAndPadsWithTerminators) {
  const struct {
    const char* name;
    Trim trim;
    const char* text;
    const char* expected;
  } rows[] = {{"RTrimTrimsTheStart", QnUtil_StrRTrim, "  a  ", "a  "},
              {"LTrim", QnUtil_StrLTrim, "  a  ", "a  "},
              {"Trim", QnUtil_StrTrim, "  a  ", "a"},
              {"TrimControls", QnUtil_StrTrim, "\t\r\n\v\f a b \n", "a b"},
              {"TrimAllBlank", QnUtil_StrTrim, " \t ", ""},
              {"NoBreakSpaceStays", QnUtil_StrTrim, "\xA0 x \xA0", "\xA0 x \xA0"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::size_t length = std::strlen(row.text);
    char buffer[64];
    std::memset(buffer, 'X', sizeof buffer);
    std::memcpy(buffer, row.text, length + 1);
    buffer[length] = '\0';
    EXPECT_EQ(row.trim(buffer), buffer);
    EXPECT_STREQ(buffer, row.expected);
    for (std::size_t i = std::strlen(row.expected); i <= length; ++i)
      EXPECT_EQ(buffer[i], '\0') << i;
    EXPECT_EQ(buffer[length + 1], 'X');
  }
}

constexpr char kUntouched = '\x55';

TEST(ConvertFromUtf8, KeepsTheLowByteOfEachUtf16Unit) {
  const struct {
    const char* utf8;
    std::string expected;  // may hold zero bytes (low bytes of surrogates)
  } rows[] = {{"abc", "abc"},
              {"\xC3\xA4", "\xE4"},
              {"\xE2\x82\xAC", "\xAC"},                          // U+20AC
              {"x\xC5\x93y", "x\x53y"},                          // U+0153
              {"\xF0\x9F\x98\x80", std::string("\x3D\x00", 2)},  // D83D DE00
              {"\342\202A", "\375A"}};                           // cut short
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    char out[32];
    std::memset(out, kUntouched, sizeof out);
    ASSERT_EQ(ConvertFromUTF8(row.utf8, out), 1);
    EXPECT_EQ(std::string(out, row.expected.size()), row.expected);
    EXPECT_EQ(out[row.expected.size()], '\0');
    EXPECT_EQ(out[row.expected.size() + 1], kUntouched);
  }
}

// Text of the upper half survives the round trip through UTF-8.
TEST(ConvertToUtf8, RoundTripsThroughConvertFromUtf8) {
  const std::string ansi = "K\374che \xC4\xD6\xDC\xE9\xA7\xB0 90\xB0";
  char utf8[64], back[64];
  ASSERT_EQ(ConvertToUTF8(ansi.c_str(), utf8), 1);
  ASSERT_EQ(ConvertFromUTF8(utf8, back), 1);
  EXPECT_EQ(std::string(back), ansi);
}

}  // namespace
