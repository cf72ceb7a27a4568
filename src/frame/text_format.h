// printf-style formatting into a std::string.
#pragma once

#include <string>

namespace qnutil::frame {

#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
std::string
format_text(const char* format, ...);

}  // namespace qnutil::frame
