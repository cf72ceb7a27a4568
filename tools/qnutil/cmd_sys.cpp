// qnutil sys: facts about the running system, the host's data folders,
// display scaling, the install location and starting programs.
#include <cstdio>
#include <cstring>
#include <string>

#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_sys(int argc, char** argv);

const Command kSys{
    "sys", "system facts, data folders, display size, install location, program launch",
    "sys os | folders [BASE] | screen | install-location SUBKEY | run PROGRAM ARGUMENT | "
    "run-line PROGRAM [ARGUMENTS...]\n"
    "  os                       operating-system version\n"
    "  folders [BASE]           program-data folder below BASE, and the roaming folder\n"
    "  screen                   desktop size corrected for display scaling\n"
    "  install-location SUBKEY  \"InstallLocation\" of SUBKEY in the local-machine registry\n"
    "  run PROGRAM ARGUMENT     start PROGRAM with ARGUMENT (both quoted) and wait\n"
    "  run-line PROGRAM ARGS    run the command line \"PROGRAM ARGS\" and wait",
    run_sys};

int print_os() {
  unsigned major = 0, minor = 0;
  if (!QnUtil_GetOperatingSystem(&major, &minor)) return 1;
  std::printf("operating system version %u.%u\n", major, minor);
  return 0;
}

int print_folders(const char* base) {
  char buf[260] = "";
  if (std::strlen(base) >= sizeof buf) {
    std::fprintf(stderr, "qnutil sys: base folder too long\n");
    return 1;
  }
  std::strcpy(buf, base);
  const char* program_data = QnUtil_GetProgPathAppData(buf);
  std::printf("program data: %s\n", program_data ? program_data : "(not available)");
  char roaming[260] = "";
  const bool has_roaming = QnUtil_GetProgPathRoamingAppData(roaming) == 1;
  std::printf("roaming data: %s\n", has_roaming ? roaming : "(not available)");
  return program_data && has_roaming ? 0 : 1;
}

int print_screen() {
  MySetProcessDpiAwareness(2);
  const int width = MyGetSystemMetrics(0), height = MyGetSystemMetrics(1);
  if (width < 0 || height < 0) {
    std::fprintf(stderr, "qnutil sys screen: no display (needs a Windows build)\n");
    return 1;
  }
  std::printf("desktop %d x %d (scaling information %s)\n", width, height,
              ProcessDpiAwarenessAvailable() ? "available" : "not available");
  return 0;
}

int print_install_location(const char* subkey) {
  char value[2048] = "";
  if (!GetLocalMachineRegistryEntry(subkey, sizeof value - 1, value)) {
#ifdef _WIN32
    std::fprintf(stderr, "qnutil sys: no InstallLocation under %s\n", subkey);
#else
    std::fprintf(stderr, "qnutil sys install-location: the registry needs a Windows build\n");
#endif
    return 1;
  }
  std::printf("%s\n", value);
  return 0;
}

int launch(int result) {
  std::printf("launcher result %d\n", result);
  return result == 1 ? 0 : 1;
}

int run_sys(int argc, char** argv) {
  if (argc < 2) return usage_error(kSys);
  const std::string action = argv[1];
  if (action == "os" && argc == 2) return print_os();
  if (action == "folders" && argc <= 3) return print_folders(argc == 3 ? argv[2] : "");
  if (action == "screen" && argc == 2) return print_screen();
  if (action == "install-location" && argc == 3) return print_install_location(argv[2]);
  if (action == "run" && argc == 4) return launch(QnUtil_ExecuteProgram(argv[2], argv[3]));
  if (action == "run-line" && argc >= 3) {
    std::string arguments;
    for (int i = 3; i < argc; ++i) arguments.append(i > 3 ? " " : "").append(argv[i]);
    return launch(QnUtil_ExecuteProgramEX(argv[2], arguments.c_str()));
  }
  return usage_error(kSys);
}

int demo_system(const DemoContext& context) {
  if (print_os() != 0) return 1;
  // On every current system the caller names the base of the program-data
  // folder; the demo's output folder stands in for it, with the closing
  // separator the host gives (without it the folders are glued on).
  print_folders((context.output / "").string().c_str());
  return 0;
}

const RegisterCommand registered{kSys};
const RegisterDemoStep demo{{70, "system facts and data folders", demo_system}};

}  // namespace
}  // namespace qnutil_tool
