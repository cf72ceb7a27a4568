#include "ini/number_list.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "numeric/multibyte_text.h"
#include "qnutil/numeric.h"

namespace qnutil::ini {

int parse_number_list(const char* text, double* out, int capacity) {
  int stored = 0;
  const char* position = text;
  for (;;) {
    char* end = nullptr;
    const double value = std::strtod(position, &end);
    if (end == position) return -1;
    out[stored++] = value;
    if (stored >= capacity || *end == '\0') return stored;
    position = end + numeric::character_length(end);
  }
}

std::string format_number_list(const double* values, int count) {
  std::string list;
  char text[400];  // "%f" of the largest double has 316 characters
  for (int i = 0; i < count; ++i) {
    double whole = 0.0;
    if (std::modf(values[i], &whole) == 0.0) {
      std::snprintf(text, sizeof text, "%d", static_cast<int>(QnUtil_LRound(values[i])));
    } else {
      std::snprintf(text, sizeof text, "%f", values[i]);
      std::replace(text, text + std::strlen(text), ',', '.');
    }
    if (i > 0) list.push_back(',');
    list.append(text);
  }
  return list;
}

}  // namespace qnutil::ini
