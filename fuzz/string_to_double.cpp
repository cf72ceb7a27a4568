// Fuzzes the text-to-double reader and checks it against glibc's strtod,
// which is correctly rounded, for every input without hexadecimal notation
// (which the library deliberately does not read).
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qnutil/numeric.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const double value = QnUtil_StringToDouble(text.c_str());
  if (text.find_first_of("xX") != std::string::npos) return 0;
  const double expected = std::strtod(text.c_str(), nullptr);
  if (std::isnan(expected) ? !std::isnan(value)
                           : std::memcmp(&value, &expected, sizeof value) != 0) {
    std::abort();
  }
  return 0;
}
