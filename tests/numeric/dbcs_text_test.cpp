// Searches and trims in a double-byte ANSI code page (Shift-JIS, 932): a
// trail byte that equals an ASCII character must not be found or trimmed.
// The program runs with a Japanese locale so that Wine's ANSI code page
// is 932.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>

#include "qnutil/qnutil.h"

namespace {

// U+8868 is 0x95 0x5C in Shift-JIS: its trail byte is a backslash.
constexpr const char* kTableWithBackslash = "\x95\x5C";
// U+30BD is 0x83 0x5C; U+3000 (ideographic space) is 0x81 0x40.

class DoubleByteCodePage : public ::testing::Test {
 protected:
  void SetUp() override {
    if (GetACP() != 932) GTEST_SKIP() << "ANSI code page is " << GetACP() << ", not 932";
  }
};

TEST_F(DoubleByteCodePage, StrIChrSkipsTrailBytes) {
  EXPECT_EQ(QnUtil_StrIChr(kTableWithBackslash, '\\'), -1);
  EXPECT_EQ(QnUtil_StrIChr("\x95\x5C\\", '\\'), 2);
  EXPECT_EQ(QnUtil_StrIChr("a\x83\x5C" "b\\", '\\'), 4);
  EXPECT_EQ(QnUtil_StrIChr("\x83\x5C" "A", 'A'), 2);
}

TEST_F(DoubleByteCodePage, StrIPosMatchesOnlyAtCharacterStarts) {
  EXPECT_EQ(QnUtil_StrIPos("\x95\x5C" "abc", "\\abc"), -1);
  EXPECT_EQ(QnUtil_StrIPos("\x95\x5C\\abc", "\\abc"), 2);
  EXPECT_EQ(QnUtil_StrIPos("x\x95\x5C" "y", "\x95\x5C"), 1);
  EXPECT_EQ(QnUtil_StrIPos("\x83\x95\x5C", "\x95\x5C"), -1);  // 0x83 0x95 is one character
}

TEST_F(DoubleByteCodePage, TrimKeepsDoubleByteCharacters) {
  char text[32];
  std::strcpy(text, " \x81\x40" "a\x81\x40 ");
  EXPECT_STREQ(QnUtil_StrTrim(text), "\x81\x40" "a\x81\x40");
  // A trailing lead byte without its trail byte is kept as it stands.
  std::strcpy(text, "a \x95");
  EXPECT_STREQ(QnUtil_StrTrim(text), "a \x95");
}

TEST_F(DoubleByteCodePage, ConvertToUtf8ReadsTheCodePage) {
  char out[16];
  ASSERT_EQ(ConvertToUTF8(kTableWithBackslash, out), 1);
  EXPECT_STREQ(out, "\xE8\xA1\xA8");
}

}  // namespace
