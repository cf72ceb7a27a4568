// Windows only (run under Wine). The portable codec and Windows-1252 table
// that POSIX builds use, compared with Windows' own conversion functions;
// and the searches and trims in a double-byte ANSI code page (Shift-JIS,
// 932), where a trail byte that equals an ASCII character must not be found
// or trimmed. The program runs with a Japanese locale so that Wine's ANSI
// code page is 932.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "numeric/utf8_codec.h"
#include "numeric/windows_1252.h"
#include "numeric/text_encoding.h"
#include "qnutil/qnutil.h"

namespace {

// Windows' own conversions are reached through the library's Windows
// platform layer, which is what the portable codec stands in for.
void expect_same_decoding(const std::string& utf8) {
  EXPECT_EQ(qnutil::numeric::codec_utf8_to_utf16(utf8), qnutil::numeric::utf8_to_utf16(utf8))
      << ::testing::PrintToString(utf8);
}

TEST(CodecPeer, Windows1252MatchesEveryByte) {
  for (int byte = 1; byte <= 0xFF; ++byte) {
    const char text[1] = {static_cast<char>(byte)};
    wchar_t wide = 0;
    ASSERT_EQ(MultiByteToWideChar(1252, 0, text, 1, &wide, 1), 1);
    EXPECT_EQ(qnutil::numeric::windows_1252_to_utf16(std::string(text, 1)),
              std::u16string(1, char16_t(wide)))
        << byte;
  }
}

TEST(CodecPeer, Utf8DecodingMatchesEveryOneAndTwoByteInput) {
  for (int first = 1; first <= 0xFF; ++first) {
    expect_same_decoding(std::string(1, static_cast<char>(first)));
    for (int second = 1; second <= 0xFF; ++second)
      expect_same_decoding({static_cast<char>(first), static_cast<char>(second)});
  }
}

TEST(CodecPeer, Utf8DecodingMatchesLongerSequencesAtTheirBoundaries) {
  const int edges[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                       0xBF, 0xC0, 0xC2, 0xE0, 0xF0, 0xF4, 0xFF};
  for (int lead = 0xC0; lead <= 0xFF; ++lead)
    for (int second : edges)
      for (int third : edges)
        for (int fourth : edges) {
          std::string text{static_cast<char>(lead), static_cast<char>(second),
                           static_cast<char>(third), static_cast<char>(fourth), 'z'};
          text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
          expect_same_decoding(text);
        }
}

TEST(CodecPeer, Utf16EncodingMatchesEveryUnitAndSurrogateCombination) {
  for (char32_t unit = 1; unit <= 0xFFFF; ++unit) {
    const std::u16string text{static_cast<char16_t>(unit), u'a'};
    EXPECT_EQ(qnutil::numeric::codec_utf16_to_utf8(text), qnutil::numeric::utf16_to_utf8(text))
        << static_cast<unsigned>(unit);
  }
  const char16_t samples[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF, u'a', 0xFFFD};
  for (char16_t a : samples)
    for (char16_t b : samples)
      for (char16_t c : samples) {
        const std::u16string text{a, b, c};
        EXPECT_EQ(qnutil::numeric::codec_utf16_to_utf8(text), qnutil::numeric::utf16_to_utf8(text));
      }
}

// U+8868 is 0x95 0x5C in Shift-JIS: its trail byte is a backslash.
constexpr const char* kTableWithBackslash = "\x95\x5C";
// U+30BD is 0x83 0x5C; U+3000 (ideographic space) is 0x81 0x40.

class DoubleByteCodePage : public ::testing::Test {
 protected:
  void SetUp() override {
    if (GetACP() != 932) GTEST_SKIP() << "ANSI code page is " << GetACP() << ", not 932";
  }
};

// Octal escapes keep each byte apart from the letters that follow it.
TEST_F(DoubleByteCodePage, SearchesMatchOnlyAtCharacterStarts) {
  EXPECT_EQ(QnUtil_StrIChr(kTableWithBackslash, '\\'), -1);
  EXPECT_EQ(QnUtil_StrIChr("\x95\x5C\\", '\\'), 2);
  EXPECT_EQ(QnUtil_StrIChr("a\203\134b\\", '\\'), 4);
  EXPECT_EQ(QnUtil_StrIChr("\203\134A", 'A'), 2);
  EXPECT_EQ(QnUtil_StrIPos("\225\134abc", "\\abc"), -1);
  EXPECT_EQ(QnUtil_StrIPos("\x95\x5C\\abc", "\\abc"), 2);
  EXPECT_EQ(QnUtil_StrIPos("x\225\134y", "\x95\x5C"), 1);
  EXPECT_EQ(QnUtil_StrIPos("\x83\x95\x5C", "\x95\x5C"), -1);  // 0x83 0x95 is one character
}

TEST_F(DoubleByteCodePage, TrimKeepsDoubleByteCharacters) {
  char text[32];
  std::strcpy(text, " \201\100a\201\100 ");
  EXPECT_STREQ(QnUtil_StrTrim(text), "\201\100a\201\100");
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
