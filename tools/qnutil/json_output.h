// --json output of the tool: records as one JSON document on stdout.
// Library texts are in the ANSI code page; JSON wants UTF-8, which the
// library's own conversion provides.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"

namespace qnutil_tool {

// Single-precision values (the library's records and triangles) with all the
// digits that tell one float from the next.
inline std::string json_number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.9g", value);
  return text;
}

inline std::string json_string(const char* ansi) {
  std::string utf8;
  if (ansi && *ansi) {
    std::vector<char> buffer(std::char_traits<char>::length(ansi) * 3 + 1);
    if (ConvertToUTF8(ansi, buffer.data()) == 1) utf8 = buffer.data();
  }
  std::string quoted = "\"";
  for (const unsigned char c : utf8) {
    switch (c) {
      case '"': quoted += "\\\""; break;
      case '\\': quoted += "\\\\"; break;
      case '\n': quoted += "\\n"; break;
      case '\r': quoted += "\\r"; break;
      case '\t': quoted += "\\t"; break;
      default:
        if (c < 0x20) {
          char escaped[8];
          std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
          quoted += escaped;
        } else {
          quoted += static_cast<char>(c);
        }
    }
  }
  return quoted + "\"";
}

// Writes the elements of a JSON array one per line: "[", items, "]".
class JsonArrayWriter {
 public:
  JsonArrayWriter() { std::printf("["); }
  ~JsonArrayWriter() { std::printf("%s]\n", first_ ? "" : "\n"); }
  JsonArrayWriter(const JsonArrayWriter&) = delete;
  JsonArrayWriter& operator=(const JsonArrayWriter&) = delete;

  void item(const std::string& json) {
    std::printf("%s\n  %s", first_ ? "" : ",", json.c_str());
    first_ = false;
  }

 private:
  bool first_ = true;
};

// Removes a "--json" flag from the arguments; true when it was there.
inline bool take_json_flag(int& argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::string(argv[i]) == "--json") {
      for (int j = i; j + 1 < argc; ++j) argv[j] = argv[j + 1];
      --argc;
      return true;
    }
  }
  return false;
}

}  // namespace qnutil_tool
