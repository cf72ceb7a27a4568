#include "platform/program_launch.h"

#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <string>

extern char** environ;

namespace qnutil::platform {
namespace {

// A POSIX process has no message queue to keep alive: both launchers spawn
// (searching PATH like CreateProcess) and wait.
LaunchResult spawn_and_wait(const char* file, char* const argv[]) {
  pid_t child = 0;
  if (posix_spawnp(&child, file, nullptr, nullptr, argv, environ) != 0)
    return LaunchResult::not_started;
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return LaunchResult::wait_failed;
  }
  return LaunchResult::ended;
}

}  // namespace

LaunchResult run_program_swallowing_input(const char* program, const char* argument) {
  std::string program_text = program, argument_text = argument;
  char* const argv[] = {program_text.data(), argument_text.data(), nullptr};
  return spawn_and_wait(program, argv);
}

LaunchResult run_command_line_dispatching(const char* program, const char* arguments) {
  // The unquoted command line is split the way a POSIX user expects: by the
  // shell.
  std::string shell = "sh", option = "-c";
  std::string command_line = std::string(program) + " " + arguments;
  char* const argv[] = {shell.data(), option.data(), command_line.data(), nullptr};
  return spawn_and_wait("/bin/sh", argv);
}

}  // namespace qnutil::platform
