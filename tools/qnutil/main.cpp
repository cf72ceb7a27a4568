// qnutil: command-line access to the QnUtil library.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "qnutil/qnutil.h"
#include "registry.h"

namespace {

using qnutil_tool::Command;
using qnutil_tool::commands;
using qnutil_tool::demo_steps;
using qnutil_tool::DemoContext;

// Message boxes of the library become lines on stderr: a command-line tool
// must never wait for a click.
void QNUTIL_CALL print_message(const char* caption, const char* text, void*) {
  std::fprintf(stderr, "%s%s%s\n", caption, *caption ? ": " : "", text);
}

const Command* find_command(const char* name) {
  for (const Command& command : commands())
    if (std::strcmp(command.name, name) == 0) return &command;
  return nullptr;
}

void print_help() {
  std::printf("qnutil %s - command-line access to the QnUtil library\n\n",
              QnUtil_GetVersionString());
  std::printf("usage: qnutil COMMAND [ARGS...]\n\ncommands:\n");
  std::printf("  %-10s %s\n", "--version", "print the library and header versions");
  std::printf("  %-10s %s\n", "help", "list commands, or show one command's usage: help COMMAND");
  std::printf("  %-10s %s\n", "demo", "run a tour of the library on bundled sample data");
  auto sorted = commands();
  std::sort(sorted.begin(), sorted.end(),
            [](const Command& a, const Command& b) { return std::strcmp(a.name, b.name) < 0; });
  for (const Command& command : sorted) std::printf("  %-10s %s\n", command.name, command.summary);
}

int print_usage(const Command& command) {
  std::printf("usage: qnutil %s\n\n%s\n", command.usage, command.summary);
  return 0;
}

bool is_help_flag(const char* arg) {
  return std::strcmp(arg, "--help") == 0 || std::strcmp(arg, "-h") == 0;
}

int run_help(int argc, char** argv) {
  if (argc < 3) {
    print_help();
    return 0;
  }
  if (const Command* command = find_command(argv[2])) return print_usage(*command);
  std::fprintf(stderr, "qnutil: unknown command '%s'\n", argv[2]);
  return 2;
}

// The source tree's samples when run from a build tree, else the installed
// copy beside the program (<prefix>/share/qnutil/samples).
std::filesystem::path default_samples_dir(const char* program) {
  std::filesystem::path built_in = QNUTIL_SAMPLES_DIR;
  std::error_code error;
  if (std::filesystem::is_directory(built_in, error)) return built_in;
  return std::filesystem::absolute(program, error).parent_path().parent_path() / "share" /
         "qnutil" / "samples";
}

int run_demo(int argc, char** argv) {
  DemoContext context{default_samples_dir(argv[0]), "qnutil-demo-out"};
  for (int i = 2; i < argc; ++i) {
    if (std::strcmp(argv[i], "--samples") == 0 && i + 1 < argc) {
      context.samples = argv[++i];
    } else if (std::strcmp(argv[i], "--out") == 0 && i + 1 < argc) {
      context.output = argv[++i];
    } else {
      std::fprintf(stderr, "usage: qnutil demo [--samples DIR] [--out DIR]\n");
      return 2;
    }
  }
  std::error_code error;
  std::filesystem::create_directories(context.output, error);
  if (error) {
    std::fprintf(stderr, "qnutil demo: cannot create %s: %s\n", context.output.string().c_str(),
                 error.message().c_str());
    return 1;
  }
  auto steps = demo_steps();
  std::stable_sort(steps.begin(), steps.end(),
                   [](const auto& a, const auto& b) { return a.order < b.order; });
  std::printf("QnUtil %s demo: samples from %s, results in %s\n", QnUtil_GetVersionString(),
              context.samples.string().c_str(), context.output.string().c_str());
  int failures = 0;
  for (const auto& step : steps) {
    std::printf("\n== %s ==\n", step.title);
    std::fflush(stdout);
    if (step.run(context) != 0) {
      std::printf("!! %s failed\n", step.title);
      ++failures;
    }
  }
  std::printf("\ndemo finished: %zu steps, %d failed\n", steps.size(), failures);
  return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  QnUtil_SetMessageHandler(print_message, nullptr);
  if (argc < 2) {
    print_help();
    return 2;
  }
  const char* name = argv[1];
  if (std::strcmp(name, "--version") == 0) {
    std::printf("qnutil %s (library), header %d.%d.%d\n", QnUtil_GetVersionString(),
                QNUTIL_VERSION_MAJOR, QNUTIL_VERSION_MINOR, QNUTIL_VERSION_PATCH);
    return QnUtil_GetVersion() == QNUTIL_VERSION ? 0 : 1;
  }
  if (std::strcmp(name, "help") == 0 || is_help_flag(name)) return run_help(argc, argv);
  if (std::strcmp(name, "demo") == 0) return run_demo(argc, argv);
  if (const Command* command = find_command(name))
    return argc > 2 && is_help_flag(argv[2]) ? print_usage(*command)
                                             : command->run(argc - 1, argv + 1);
  std::fprintf(stderr, "qnutil: unknown command '%s' (try 'qnutil help')\n", name);
  return 2;
}
