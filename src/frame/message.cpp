#include <cstdio>
#include <ctime>
#include <mutex>
#include <string>

#include "frame/export_guard.h"
#include "frame/message_box.h"
#include "frame/module.h"
#include "frame/module_strings.h"
#include "frame/text_format.h"
#include "platform/log_file.h"
#include "qnutil/frame.h"

using qnutil::frame::format_text;
using qnutil::frame::module;
using qnutil::frame::module_string;
using qnutil::frame::show_message_box;

namespace {

constexpr long kFallbackLogNames = 20;

std::string log_time_stamp() {
  char stamp[128] = "";
  const std::time_t now = std::time(nullptr);
  // The C runtime's local time; an unrepresentable time leaves the stamp
  // empty rather than aborting the host.
  if (const std::tm* local = std::localtime(&now))
    std::strftime(stamp, sizeof stamp, "%B %d, %Y, %H:%M", local);
  return stamp;
}

// Tries "<name>_1" … "<name>_20"; returns the file and the name used.
std::FILE* open_fallback_log(const char* name, std::string& used) {
  for (long n = 1; n <= kFallbackLogNames; ++n) {
    used = format_text("%s_%ld", name, n);
    if (std::FILE* file = std::fopen(used.c_str(), "w")) return file;
  }
  return nullptr;
}

}  // namespace

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_Message(const char* text, const char* extra1,
                                                      const char* extra2, const char* sourceFile,
                                                      int line) {
  qnutil::frame::guard_export_void([&] {
    const std::string caption =
        sourceFile ? format_text("MESSAGE in \"%s\" line %d:", sourceFile, line) : "MESSAGE";
    std::string body;
    for (const char* part : {text, extra1, extra2})
      if (part) body += part;

    auto& m = module();
    {
      std::lock_guard guard(m.lock);
      if (m.writeToLogfile && m.logFile) {
        std::fprintf(m.logFile, "%s :: %s in \"%s\" line %d\n", log_time_stamp().c_str(),
                     body.c_str(), sourceFile ? sourceFile : "", line);
        qnutil::platform::flush_committed_log(m.logFile);
        return;
      }
    }
    show_message_box(caption.c_str(), body.c_str());
  });
}

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_SetWriteToLogfile(int enable, const char* fileName,
                                                                int append) {
  qnutil::frame::guard_export_void([&] {
    auto& m = module();
    std::string notice;
    {
      std::lock_guard guard(m.lock);
      m.writeToLogfile = enable != 0;
      if (!enable) {
        if (m.logFile) std::fclose(m.logFile);
        m.logFile = nullptr;
        return;
      }
      if (m.logFile || !fileName) return;
      m.logFile = qnutil::platform::open_committed_log(fileName, append != 0);
      if (m.logFile) return;

      std::string used;
      m.logFile = open_fallback_log(fileName, used);
      if (m.logFile) {
        notice =
            format_text(module_string(IDS_LOGFILE_SUBSTITUTED).c_str(), fileName, used.c_str());
      } else {
        m.writeToLogfile = 0;
        notice = module_string(IDS_NO_LOGFILE);
      }
    }
    // Shown outside the lock: a handler may report messages of its own.
    show_message_box("", notice.c_str());
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_GetWriteToLogfile(void) {
  auto& m = module();
  std::lock_guard guard(m.lock);
  return m.writeToLogfile ? 1 : 0;
}
