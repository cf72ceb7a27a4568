#include "numeric/text_encoding.h"

#include <windows.h>

#include <climits>

namespace qnutil::numeric {
namespace {

// Converted with the terminator, as zero-terminated texts always were:
// how Windows ends an ill-formed sequence at the end of the text depends
// on it. The terminator is dropped again (a sequence cut off by the end
// can swallow it).
std::u16string to_utf16(UINT code_page, std::string_view text) {
  if (text.empty() || text.size() >= INT_MAX) return {};
  const std::string terminated(text);
  const int units = MultiByteToWideChar(code_page, 0, terminated.c_str(), -1, nullptr, 0);
  if (units <= 0) return {};
  std::u16string wide(static_cast<std::size_t>(units), u'\0');
  MultiByteToWideChar(code_page, 0, terminated.c_str(), -1, reinterpret_cast<wchar_t*>(wide.data()),
                      units);
  if (wide.back() == u'\0') wide.pop_back();
  return wide;
}

}  // namespace

std::u16string utf8_to_utf16(std::string_view utf8) { return to_utf16(CP_UTF8, utf8); }

std::u16string ansi_to_utf16(std::string_view text) { return to_utf16(CP_ACP, text); }

std::string utf16_to_utf8(std::u16string_view utf16) {
  if (utf16.empty() || utf16.size() > INT_MAX) return {};
  const auto* wide = reinterpret_cast<const wchar_t*>(utf16.data());
  const int length = static_cast<int>(utf16.size());
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr);
  if (bytes <= 0) return {};
  std::string utf8(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide, length, utf8.data(), bytes, nullptr, nullptr);
  return utf8;
}

}  // namespace qnutil::numeric
