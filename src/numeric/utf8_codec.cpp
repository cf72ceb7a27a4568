#include "numeric/utf8_codec.h"

namespace qnutil::numeric {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct LeadByte {
  int continuation_bytes;  // -1: the byte cannot start a sequence
  unsigned char lowest_second, highest_second;  // excludes overlongs, surrogates, > U+10FFFF
};

LeadByte classify(unsigned char byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {-1, 0, 0};
}

void append_utf16(std::u16string& out, char32_t code) {
  if (code < 0x10000) {
    out.push_back(static_cast<char16_t>(code));
  } else {
    code -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
  }
}

void append_utf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (code >> 6)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else if (code < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (code >> 12)));
    out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (code >> 18)));
    out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
  }
}

bool is_high_surrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool is_low_surrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::u16string utf8_to_utf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  std::size_t i = 0;
  while (i < utf8.size()) {
    const auto lead = static_cast<unsigned char>(utf8[i++]);
    if (lead < 0x80) {
      out.push_back(lead);
      continue;
    }
    const LeadByte kind = classify(lead);
    if (kind.continuation_bytes < 0) {
      out.push_back(kReplacement);
      continue;
    }
    char32_t code = lead & (0x3F >> kind.continuation_bytes);
    bool complete = true;
    for (int k = 0; k < kind.continuation_bytes; ++k) {
      const unsigned char lowest = k == 0 ? kind.lowest_second : 0x80;
      const unsigned char highest = k == 0 ? kind.highest_second : 0xBF;
      if (i == utf8.size()) {
        complete = false;
        break;
      }
      const auto next = static_cast<unsigned char>(utf8[i]);
      if (next < lowest || next > highest) {
        complete = false;  // the offending byte starts the next sequence
        break;
      }
      code = (code << 6) | (next & 0x3F);
      ++i;
    }
    append_utf16(out, complete ? code : kReplacement);
  }
  return out;
}

std::string utf16_to_utf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size() * 3);
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    const char16_t unit = utf16[i];
    if (is_high_surrogate(unit) && i + 1 < utf16.size() && is_low_surrogate(utf16[i + 1])) {
      append_utf8(out, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (utf16[++i] - 0xDC00));
    } else if (is_high_surrogate(unit) || is_low_surrogate(unit)) {
      append_utf8(out, kReplacement);
    } else {
      append_utf8(out, unit);
    }
  }
  return out;
}

}  // namespace qnutil::numeric
