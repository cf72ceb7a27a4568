#include <charconv>
#include <cstring>
#include <limits>

#include "qnutil/numeric.h"

namespace {

bool is_blank(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool is_digit(char c) noexcept { return c >= '0' && c <= '9'; }

// Whether a decimal number that std::from_chars found out of range is too
// large (rather than too small): its first significant digit stands at a
// non-negative power of ten once the exponent part is applied.
bool magnitude_overflows(const char* first, const char* last) noexcept {
  long long leading_exponent = -1;  // of the first significant digit
  bool significant = false, after_point = false;
  const char* p = first;
  for (; p != last && (is_digit(*p) || *p == '.'); ++p) {
    if (*p == '.') {
      after_point = true;
    } else if (significant) {
      if (!after_point) ++leading_exponent;
    } else if (*p != '0') {
      significant = true;
      if (!after_point) leading_exponent = 0;
    } else if (after_point) {
      --leading_exponent;
    }
  }
  long long exponent = 0;
  bool negative_exponent = false;
  if (p != last && (*p == 'e' || *p == 'E')) {
    ++p;
    if (p != last && (*p == '+' || *p == '-')) negative_exponent = *p++ == '-';
    for (; p != last && is_digit(*p); ++p) {
      if (exponent < 1'000'000'000) exponent = exponent * 10 + (*p - '0');
    }
  }
  return leading_exponent + (negative_exponent ? -exponent : exponent) >= 0;
}

}  // namespace

// Parsed with std::from_chars rather than strtod so that the result is the
// correctly rounded value on every target and independent of the locale;
// only the sign and the skipped blanks need handling around it.
extern "C" QNUTIL_API double QNUTIL_CALL QnUtil_StringToDouble(const char* text) {
  if (!text) return -std::numeric_limits<double>::infinity();
  while (is_blank(*text)) ++text;
  bool negative = false;
  if (*text == '+' || *text == '-') negative = *text++ == '-';
  if (*text == '-') return 0.0;  // from_chars would take a second sign
  const char* last = text + std::strlen(text);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text, last, value);
  if (error == std::errc::invalid_argument) return 0.0;
  if (error == std::errc::result_out_of_range) {
    value = magnitude_overflows(text, end) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return negative ? -value : value;
}
