// UTF-8 conversions through the public interface. Under Wine the ANSI side
// is compared with Windows' own conversion of the active code page.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "qnutil/qnutil.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

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
                      FromUtf8Case{"\xE2\x82\xAC", "\xAC"},                 // U+20AC
                      FromUtf8Case{"x\xC5\x93y", "x\x53y"},                 // U+0153
                      FromUtf8Case{"\xF0\x9F\x98\x80", std::string("\x3D\x00", 2)},  // D83D DE00
                      FromUtf8Case{"\xC3", "\xFD"},                         // truncated: U+FFFD
                      FromUtf8Case{"\xC0\xAF", "\xFD\xFD"},                 // overlong
                      FromUtf8Case{"\xED\xA0\x80", "\xFD\xFD"},  // surrogate: lead and checked byte, then a stray one
                      FromUtf8Case{"\xE2\x82" "A", "\xFD" "A"},             // cut short
                      FromUtf8Case{"\xF4\x90\x80\x80", "\xFD\xFD\xFD"},  // above U+10FFFF
                      FromUtf8Case{"\xE0\x80\x80", "\xFD\xFD"},  // overlong
                      FromUtf8Case{"a\xF0\x9F", "a\xFD"},  // cut off by the end
                      FromUtf8Case{"\xFF", "\xFD"}));

TEST(ConvertFromUtf8, EmptyInputFailsAndLeavesTheBufferAlone) {
  char out[4] = {kUntouched, kUntouched, kUntouched, kUntouched};
  EXPECT_EQ(ConvertFromUTF8("", out), 0);
  EXPECT_EQ(out[0], kUntouched);
}

TEST(ConvertToUtf8, EmptyInputFailsAndLeavesTheBufferAlone) {
  char out[4] = {kUntouched, kUntouched, kUntouched, kUntouched};
  EXPECT_EQ(ConvertToUTF8("", out), 0);
  EXPECT_EQ(out[0], kUntouched);
}

TEST(ConvertToUtf8, AsciiStaysAsItIs) {
  char out[64];
  ASSERT_EQ(ConvertToUTF8("Wand 24cm", out), 1);
  EXPECT_STREQ(out, "Wand 24cm");
}

std::string to_utf8(const std::string& ansi) {
  char out[64];
  std::memset(out, kUntouched, sizeof out);
  if (ConvertToUTF8(ansi.c_str(), out) != 1) return "<failed>";
  return out;
}

#ifdef _WIN32
// Every byte of the upper half against Windows' own conversion.
TEST(ConvertToUtf8, MatchesWindowsForEveryUpperByte) {
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    const char text[2] = {static_cast<char>(byte), '\0'};
    wchar_t wide[4];
    const int units = MultiByteToWideChar(CP_ACP, 0, text, 1, wide, 4);
    char expected[16];
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide, units, expected, 16, nullptr, nullptr);
    EXPECT_EQ(to_utf8(text), std::string(expected, static_cast<std::size_t>(bytes))) << byte;
  }
}
#else
TEST(ConvertToUtf8, ReadsWindows1252) {
  EXPECT_EQ(to_utf8("\x80"), "\xE2\x82\xAC");
  EXPECT_EQ(to_utf8("\x81"), "\xC2\x81");  // unassigned: the C1 control
  EXPECT_EQ(to_utf8("\x8A\x9F"), "\xC5\xA0\xC5\xB8");
  EXPECT_EQ(to_utf8("Ma\xDF"), "Ma\xC3\x9F");
  for (int byte = 0xA0; byte <= 0xFF; ++byte) {
    const std::string utf8 = to_utf8(std::string(1, static_cast<char>(byte)));
    EXPECT_EQ(utf8, std::string({static_cast<char>(0xC0 | (byte >> 6)),
                                 static_cast<char>(0x80 | (byte & 0x3F))}))
        << byte;
  }
}
#endif

// Text of the upper half survives the round trip through UTF-8.
TEST(ConvertToUtf8, RoundTripsThroughConvertFromUtf8) {
  const std::string ansi = "K\xFC" "che \xC4\xD6\xDC\xE9\xA7\xB0 90\xB0";
  char utf8[64], back[64];
  ASSERT_EQ(ConvertToUTF8(ansi.c_str(), utf8), 1);
  ASSERT_EQ(ConvertFromUTF8(utf8, back), 1);
  EXPECT_EQ(std::string(back), ansi);
}

}  // namespace
