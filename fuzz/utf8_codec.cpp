// Fuzzes the UTF-8/UTF-16 codec that stands in for Windows' conversions on
// POSIX: decoding never fails, its output holds only well-formed UTF-16,
// and re-encoding that output decodes back to the same units.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "numeric/utf8_codec.h"
#include "numeric/windows_1252.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::u16string wide = qnutil::numeric::codec_utf8_to_utf16(bytes);
  if (qnutil::numeric::codec_utf8_to_utf16(qnutil::numeric::codec_utf16_to_utf8(wide)) != wide)
    std::abort();
  if (qnutil::numeric::windows_1252_to_utf16(bytes).size() != size) std::abort();

  // The same bytes taken as UTF-16 units, lone surrogates included.
  std::u16string units(size / 2, u'\0');
  std::memcpy(units.data(), data, units.size() * 2);
  const std::string utf8 = qnutil::numeric::codec_utf16_to_utf8(units);
  if (qnutil::numeric::codec_utf16_to_utf8(qnutil::numeric::codec_utf8_to_utf16(utf8)) != utf8)
    std::abort();
  return 0;
}
