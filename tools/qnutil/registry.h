// Subcommands and demo steps of the qnutil tool register themselves here
// from their own source files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qnutil_tool {

struct Command {
  const char* name;     // first argument that selects it
  const char* summary;  // one line for `qnutil help`
  const char* usage;    // full usage text for `qnutil help NAME` and errors
  // argv[0] is the command name; returns the process exit status.
  int (*run)(int argc, char** argv);
};

struct DemoContext {
  std::filesystem::path samples;  // bundled sample data (read only)
  std::filesystem::path output;   // where the demo writes its results
};

struct DemoStep {
  int order;  // steps run in ascending order
  const char* title;
  int (*run)(const DemoContext& context);  // 0 on success
};

struct RegisterCommand {
  explicit RegisterCommand(const Command& command);
};
struct RegisterDemoStep {
  explicit RegisterDemoStep(const DemoStep& step);
};

std::vector<Command>& commands();
std::vector<DemoStep>& demo_steps();

// Prints "usage: qnutil <usage>" to stderr and returns the exit status for
// bad arguments (2).
int usage_error(const Command& command);

}  // namespace qnutil_tool
