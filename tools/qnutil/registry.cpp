#include "registry.h"

#include <cstdio>

namespace qnutil_tool {

std::vector<Command>& commands() {
  static std::vector<Command> list;
  return list;
}

std::vector<DemoStep>& demo_steps() {
  static std::vector<DemoStep> list;
  return list;
}

RegisterCommand::RegisterCommand(const Command& command) { commands().push_back(command); }
RegisterDemoStep::RegisterDemoStep(const DemoStep& step) { demo_steps().push_back(step); }

int usage_error(const Command& command) {
  std::fprintf(stderr, "usage: qnutil %s\n", command.usage);
  return 2;
}

}  // namespace qnutil_tool
