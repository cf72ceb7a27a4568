#include "platform/message_box.h"

#include <cstdio>
#include <string>

namespace qnutil::platform {

void show_message_box(const char* caption, const char* text) {
  // One line per message, so that logs of headless runs stay greppable.
  std::string line = "QnUtil";
  if (*caption) line.append(" [").append(caption).append("]");
  line.append(": ");
  for (const char* p = text; *p; ++p) line.push_back(*p == '\n' || *p == '\r' ? ' ' : *p);
  line.push_back('\n');
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
}

}  // namespace qnutil::platform
