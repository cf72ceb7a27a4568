// Recogniser of typed values stored as text: comma-separated items with
// blanks around them and at most one line end after the last.
#pragma once

#include <string_view>
#include <vector>

namespace qnutil::env {

enum class ItemSyntax {
  integer,  // [+-]digits
  real,     // [+-]digits[.digits][(E|e|D|d)[+-]digits]
  word,     // ASCII letters and digits
};

// Splits text into its items; false (items unspecified) if it does not
// follow the syntax.
bool scan_items(std::string_view text, ItemSyntax syntax, std::vector<std::string_view>& items);

// Converts recognised items. A "D" exponent is read as "E".
long integer_value(std::string_view item);
double real_value(std::string_view item);

}  // namespace qnutil::env
