// Fuzzes the block encoder against a plain one-group-at-a-time encoder.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "encoding/base64.h"

namespace {

std::string reference(const std::uint8_t* in, std::size_t size) {
  static const char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < size; i += 3) {
    const std::size_t n = size - i < 3 ? size - i : 3;
    const std::uint32_t bits =
        std::uint32_t{in[i]} << 16 | (n > 1 ? in[i + 1] << 8 : 0) | (n > 2 ? in[i + 2] : 0);
    text += kAlphabet[bits >> 18];
    text += kAlphabet[(bits >> 12) & 63];
    text += n > 1 ? kAlphabet[(bits >> 6) & 63] : '=';
    text += n > 2 ? kAlphabet[bits & 63] : '=';
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(qnutil::encoding::base64_length(size), '\0');
  qnutil::encoding::encode_base64(data, size, text.data());
  if (text != reference(data, size)) std::abort();
  return 0;
}
