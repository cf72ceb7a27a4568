// The portable codec and Windows-1252 table that POSIX builds use, compared
// with Windows' own conversion functions (run under Wine).
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>

#include "numeric/utf8_codec.h"
#include "numeric/windows_1252.h"

namespace {

// Converted with the terminator, as the library converts; the terminator
// is dropped again when it comes out.
std::u16string windows_to_utf16(UINT code_page, const std::string& text) {
  std::u16string wide(text.size() * 2 + 2, u'\0');
  const int units = MultiByteToWideChar(code_page, 0, text.c_str(), -1,
                                        reinterpret_cast<wchar_t*>(wide.data()),
                                        static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(units));
  if (!wide.empty() && wide.back() == u'\0') wide.pop_back();
  return wide;
}

std::string windows_to_utf8(const std::u16string& wide) {
  if (wide.empty()) return {};
  std::string utf8(wide.size() * 3, '\0');
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<const wchar_t*>(wide.data()),
                                        static_cast<int>(wide.size()), utf8.data(),
                                        static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(bytes));
  return utf8;
}

std::string hex(const std::string& bytes) {
  std::string text;
  char digits[4];
  for (const char c : bytes) {
    std::snprintf(digits, sizeof digits, "%02X ", static_cast<unsigned char>(c));
    text += digits;
  }
  return text;
}

void expect_same_decoding(const std::string& utf8) {
  EXPECT_EQ(qnutil::numeric::utf8_to_utf16(utf8), windows_to_utf16(CP_UTF8, utf8)) << hex(utf8);
}

TEST(CodecPeer, Windows1252MatchesEveryByte) {
  for (int byte = 1; byte <= 0xFF; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(qnutil::numeric::windows_1252_to_utf16(text), windows_to_utf16(1252, text)) << byte;
  }
}

TEST(CodecPeer, Utf8DecodingMatchesEveryOneAndTwoByteInput) {
  for (int first = 1; first <= 0xFF; ++first) {
    expect_same_decoding(std::string(1, static_cast<char>(first)));
    for (int second = 1; second <= 0xFF; ++second) {
      expect_same_decoding({static_cast<char>(first), static_cast<char>(second)});
    }
  }
}

TEST(CodecPeer, Utf8DecodingMatchesLongerSequencesAtTheirBoundaries) {
  const int edges[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2, 0xE0, 0xF0, 0xF4, 0xFF};
  for (int lead = 0xC0; lead <= 0xFF; ++lead) {
    for (int second : edges) {
      for (int third : edges) {
        for (int fourth : edges) {
          std::string text{static_cast<char>(lead), static_cast<char>(second), static_cast<char>(third),
                           static_cast<char>(fourth), 'z'};
          text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
          expect_same_decoding(text);
        }
      }
    }
  }
}

TEST(CodecPeer, Utf8DecodingMatchesRandomText) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> length(1, 16), byte(0x01, 0xFF), kind(0, 3);
  for (int i = 0; i < 100000; ++i) {
    std::string text;
    for (int n = length(random); n > 0; --n) {
      const int b = byte(random);
      // Bias towards continuation bytes so that valid sequences occur too.
      text.push_back(static_cast<char>(kind(random) == 0 ? (0x80 | (b & 0x3F)) : b));
    }
    expect_same_decoding(text);
  }
}

TEST(CodecPeer, Utf16EncodingMatchesEveryUnitAndSurrogateCombination) {
  for (char32_t unit = 1; unit <= 0xFFFF; ++unit) {
    const std::u16string text{static_cast<char16_t>(unit), u'a'};
    EXPECT_EQ(qnutil::numeric::utf16_to_utf8(text), windows_to_utf8(text)) << static_cast<unsigned>(unit);
  }
  const char16_t samples[] = {0xD800, 0xDBFF, 0xDC00, 0xDFFF, u'a', 0xFFFD};
  for (char16_t a : samples) {
    for (char16_t b : samples) {
      for (char16_t c : samples) {
        const std::u16string text{a, b, c};
        EXPECT_EQ(qnutil::numeric::utf16_to_utf8(text), windows_to_utf8(text));
      }
    }
  }
}

}  // namespace
