// Starting another program and waiting for it, keeping the caller's
// message queue from filling up.
#include "frame/export_guard.h"
#include "platform/program_launch.h"
#include "qnutil/system.h"

namespace {

namespace platform = qnutil::platform;

// A program that could not be started counts as one that ran: the host
// never told the two apart.
int launch_result(platform::LaunchResult result) {
  return result == platform::LaunchResult::wait_failed ? 0 : 1;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_ExecuteProgram(const char* program,
                                                            const char* argument) {
  if (!program) return 1;
  return qnutil::frame::guard_export(1, [&] {
    return launch_result(platform::run_program_swallowing_input(program, argument ? argument : ""));
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_ExecuteProgramEX(const char* program,
                                                              const char* arguments) {
  return qnutil::frame::guard_export(1, [&] {
    return launch_result(
        platform::run_command_line_dispatching(program ? program : "", arguments ? arguments : ""));
  });
}
