// The path delimiter: process-wide configuration, read through a per-thread
// copy that is refreshed only when some thread changed it.
#pragma once

#include <string>

namespace qnutil::env {

struct DelimiterView {
  const std::string& text;       // the whole delimiter string
  const bool (&separates)[256];  // every character of it separates
  char first() const { return text[0]; }
};

DelimiterView delimiter();
// Installs `text` (non-empty, cut to 254 bytes) and returns the previous one.
std::string replace_delimiter(const char* text);

}  // namespace qnutil::env
