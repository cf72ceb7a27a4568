#include "numeric/utf8_codec.h"

namespace qnutil::numeric {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Continuation bytes a lead byte announces; 0 for bytes that cannot lead.
int continuation_bytes(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 1;
  if (lead >= 0xE0 && lead <= 0xEF) return 2;
  if (lead >= 0xF0 && lead <= 0xF4) return 3;
  return 0;
}

// Whether the bits gathered from the lead byte and the first continuation
// byte already rule the sequence out: overlong three- and four-byte forms,
// surrogates, and code points above U+10FFFF.
bool ruled_out_after_second_byte(int continuation, char32_t bits) {
  if (continuation == 2) return bits < 0x20 || (bits >= 0x360 && bits <= 0x37F);
  if (continuation == 3) return bits < 0x10 || bits >= 0x110;
  return false;
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

// Windows converts the text together with its terminator, and its decoder
// consumes every continuation byte it has checked before it rejects a
// sequence; a byte that is not a continuation byte starts the next one.
// A sequence cut off by the end of the text swallows the terminator.
std::u16string codec_utf8_to_utf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  const std::size_t end = utf8.size();  // index of the (virtual) terminator
  const auto byte_at = [&](std::size_t i) {
    return i < end ? static_cast<unsigned char>(utf8[i]) : 0;
  };
  std::size_t i = 0;
  while (i < end) {
    const unsigned char lead = byte_at(i++);
    if (lead < 0x80) {
      out.push_back(lead);
      continue;
    }
    const int continuation = continuation_bytes(lead);
    if (continuation == 0) {
      out.push_back(kReplacement);
      continue;
    }
    if (i + static_cast<std::size_t>(continuation) > end + 1) {
      out.push_back(kReplacement);
      break;
    }
    char32_t code = lead & (0x3F >> continuation);
    bool valid = true;
    for (int k = 0; k < continuation && valid; ++k) {
      const unsigned char next = byte_at(i);
      if ((next & 0xC0) != 0x80) {
        valid = false;
        break;
      }
      code = (code << 6) | (next & 0x3F);
      ++i;
      if (k == 0 && ruled_out_after_second_byte(continuation, code)) valid = false;
    }
    append_utf16(out, valid ? code : kReplacement);
  }
  return out;
}

std::string codec_utf16_to_utf8(std::u16string_view utf16) {
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
