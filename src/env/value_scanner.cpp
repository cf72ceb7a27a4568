#include "env/value_scanner.h"

#include <cstdlib>
#include <string>

#include "qnutil/numeric.h"

namespace qnutil::env {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_alnum(char c) { return is_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) {}
  bool at_end() const { return pos_ >= text_.size(); }
  bool take(char c) {
    if (at_end() || text_[pos_] != c) return false;
    ++pos_;
    return true;
  }
  bool take_any_of(std::string_view set) {
    if (at_end() || set.find(text_[pos_]) == std::string_view::npos) return false;
    ++pos_;
    return true;
  }
  std::size_t take_while(bool (*pred)(char)) {
    const std::size_t start = pos_;
    while (!at_end() && pred(text_[pos_])) ++pos_;
    return pos_ - start;
  }
  std::size_t pos() const { return pos_; }
  std::string_view since(std::size_t start) const { return text_.substr(start, pos_ - start); }

 private:
  std::string_view text_;
  std::size_t pos_ = 0;
};

bool scan_integer(Cursor& in) {
  in.take_any_of("+-");
  return in.take_while(is_digit) > 0;
}

// Digits after the decimal point may be absent ("5." reads as 5); the
// exponent, once its letter is there, needs digits.
bool scan_real(Cursor& in) {
  if (!scan_integer(in)) return false;
  if (in.take('.')) in.take_while(is_digit);
  if (in.take_any_of("EeDd")) {
    in.take_any_of("+-");
    return in.take_while(is_digit) > 0;
  }
  return true;
}

bool scan_word(Cursor& in) { return in.take_while(is_alnum) > 0; }

}  // namespace

bool scan_items(std::string_view text, ItemSyntax syntax, std::vector<std::string_view>& items) {
  items.clear();
  Cursor in(text);
  for (;;) {
    in.take_while(is_blank);
    const std::size_t start = in.pos();
    const bool ok = syntax == ItemSyntax::integer ? scan_integer(in)
                    : syntax == ItemSyntax::real  ? scan_real(in)
                                                  : scan_word(in);
    if (!ok) return false;
    items.push_back(in.since(start));
    in.take_while(is_blank);
    if (!in.take(',')) break;
  }
  in.take_any_of("\n\r");
  return in.at_end();
}

long integer_value(std::string_view item) {
  const std::string text(item);
  return std::strtol(text.c_str(), nullptr, 10);
}

double real_value(std::string_view item) {
  std::string text(item);
  for (char& c : text)
    if (c == 'D' || c == 'd') c = 'e';
  return QnUtil_StringToDouble(text.c_str());
}

}  // namespace qnutil::env
