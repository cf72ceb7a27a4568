// qnutil message: report a message through the library's message facility.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_message(int argc, char** argv);

const Command kMessage{"message", "report TEXT as a message box (stderr) or a log line",
                       "message TEXT [--log FILE [--append]] [--source UNIT LINE]", run_message};

int run_message(int argc, char** argv) {
  const char* text = nullptr;
  const char* log = nullptr;
  const char* source = nullptr;
  int line = 0;
  bool append = false;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--log") == 0 && i + 1 < argc) {
      log = argv[++i];
    } else if (std::strcmp(argv[i], "--append") == 0) {
      append = true;
    } else if (std::strcmp(argv[i], "--source") == 0 && i + 2 < argc) {
      source = argv[++i];
      line = std::atoi(argv[++i]);
    } else if (!text && argv[i][0] != '-') {
      text = argv[i];
    } else {
      return usage_error(kMessage);
    }
  }
  if (!text || (append && !log)) return usage_error(kMessage);
  if (log) QnUtil_SetWriteToLogfile(1, log, append ? 1 : 0);
  QnUtil_Message(text, nullptr, nullptr, source, line);
  if (log) QnUtil_SetWriteToLogfile(0, nullptr, 0);
  return 0;
}

int demo_messages(const DemoContext& context) {
  const std::string log = (context.output / "messages.log").string();
  std::printf("A message box (shown on stderr by this tool):\n");
  std::fflush(stdout);
  QnUtil_Message("Hello from ", "QnUtil", nullptr, "demo", __LINE__);
  QnUtil_SetWriteToLogfile(1, log.c_str(), 0);
  QnUtil_Message("logged ", "line one", nullptr, "demo", __LINE__);
  QnUtil_Message("logged line two", nullptr, nullptr, nullptr, 0);
  QnUtil_SetWriteToLogfile(0, nullptr, 0);
  std::printf("The log file %s:\n", log.c_str());
  std::ifstream in(log);
  std::cout << in.rdbuf();
  return in ? 0 : 1;
}

const RegisterCommand registered{kMessage};
const RegisterDemoStep demo{{10, "messages and log", demo_messages}};

}  // namespace
}  // namespace qnutil_tool
