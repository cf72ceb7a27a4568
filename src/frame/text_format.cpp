#include "frame/text_format.h"

#include <cstdarg>
#include <cstdio>

namespace qnutil::frame {

std::string format_text(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list measure;
  va_copy(measure, args);
  const int length = std::vsnprintf(nullptr, 0, format, measure);
  va_end(measure);
  std::string text;
  if (length > 0) {
    text.resize(static_cast<size_t>(length) + 1);
    std::vsnprintf(text.data(), text.size(), format, args);
    text.resize(static_cast<size_t>(length));
  }
  va_end(args);
  return text;
}

}  // namespace qnutil::frame
