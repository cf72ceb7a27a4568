// The text form of number lists in INI values, e.g. "1,2.500000,-3".
#pragma once

#include <string>

namespace qnutil::ini {

// Parses numbers (C strtod) from `text`, each followed by exactly one
// separator character of any kind, into out[0..capacity-1]. Stops after
// `capacity` numbers or at the end of the text and returns the count; -1
// when a number is expected but none is there (the numbers stored so far
// stay in `out`). `capacity` must be at least 1.
int parse_number_list(const char* text, double* out, int capacity);

// Joins the values with ",": a value without fraction as a 32-bit integer
// ("%d", out-of-range values as the x86 integer-indefinite -2147483648),
// others as "%f" with any decimal comma of the locale turned into ".".
std::string format_number_list(const double* values, int count);

}  // namespace qnutil::ini
