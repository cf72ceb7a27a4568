// Progress notes of long-running commands, shown on stderr only when it is
// a terminal so that redirected output stays clean.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#ifdef _WIN32
#include <io.h>
#define QNUTIL_TOOL_ISATTY(fd) _isatty(fd)
#else
#include <unistd.h>
#define QNUTIL_TOOL_ISATTY(fd) isatty(fd)
#endif

namespace qnutil_tool {

inline bool stderr_is_terminal() { return QNUTIL_TOOL_ISATTY(2) != 0; }

// Announces a long step when it starts and reports its duration when the
// object goes out of scope; silent when `enabled` is false.
class ProgressNote {
 public:
  ProgressNote(bool enabled, const std::string& what)
      : enabled_(enabled && stderr_is_terminal()), start_(std::chrono::steady_clock::now()) {
    if (enabled_) std::fprintf(stderr, "%s ...", what.c_str());
  }
  ~ProgressNote() {
    if (!enabled_) return;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start_;
    std::fprintf(stderr, " done in %.2f s\n", elapsed.count());
  }
  ProgressNote(const ProgressNote&) = delete;
  ProgressNote& operator=(const ProgressNote&) = delete;

 private:
  bool enabled_;
  std::chrono::steady_clock::time_point start_;
};

}  // namespace qnutil_tool
