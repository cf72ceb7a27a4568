#include "numeric/windows_1252.h"

namespace qnutil::numeric {
namespace {

// 0x80..0x9F; from 0xA0 on the code page equals ISO 8859-1.
constexpr char16_t kRow80[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
                                 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::u16string windows_1252_to_utf16(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    wide.push_back(byte >= 0x80 && byte < 0xA0 ? kRow80[byte - 0x80] : char16_t{byte});
  }
  return wide;
}

}  // namespace qnutil::numeric
