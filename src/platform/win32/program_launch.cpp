#include "platform/program_launch.h"

#include <windows.h>

#include <string>
#include <utility>

namespace qnutil::platform {
namespace {

// Normal priority, no inherited handles, the caller's folder and
// environment, a start-up record that sets nothing but its size.
bool start(std::string command_line, PROCESS_INFORMATION& process) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  process = PROCESS_INFORMATION{};
  if (!CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                      nullptr, nullptr, &startup, &process)) {
    // A failed start is not reported: the caller sees it as a finished run.
    (void)GetLastError();
    return false;
  }
  return process.hProcess != nullptr;
}

void close(PROCESS_INFORMATION& process) {
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

DWORD wait_for_process_or_input(HANDLE process) {
  return MsgWaitForMultipleObjects(1, &process, FALSE, INFINITE, QS_ALLINPUT);
}

}  // namespace

LaunchResult run_program_swallowing_input(const char* program, const char* argument) {
  std::string command_line = "\"";
  command_line.append(program).append("\" \"").append(argument).append("\"");
  PROCESS_INFORMATION process;
  if (!start(std::move(command_line), process)) return LaunchResult::not_started;
  for (;;) {
    const DWORD woke = wait_for_process_or_input(process.hProcess);
    if (woke == WAIT_OBJECT_0) {
      close(process);
      return LaunchResult::ended;
    }
    if (woke == WAIT_FAILED) return LaunchResult::wait_failed;
    if (woke == WAIT_OBJECT_0 + 1) {
      // One message leaves the queue undispatched: the host's windows stay
      // frozen while the program runs.
      MSG message;
      PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);
    }
  }
}

LaunchResult run_command_line_dispatching(const char* program, const char* arguments) {
  PROCESS_INFORMATION process;
  if (!start(std::string(program) + " " + arguments, process)) return LaunchResult::not_started;
  for (;;) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
    const DWORD woke = wait_for_process_or_input(process.hProcess);
    if (woke == WAIT_OBJECT_0) {
      close(process);
      return LaunchResult::ended;
    }
    if (woke == WAIT_FAILED) return LaunchResult::wait_failed;
  }
}

}  // namespace qnutil::platform
