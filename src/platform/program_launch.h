// Starting another program and waiting for it to end.
#pragma once

namespace qnutil::platform {

// Results of the waits below.
enum class LaunchResult {
  ended,        // the program ran and ended
  not_started,  // no process could be created
  wait_failed   // waiting for it failed
};

// Runs `program` with the single argument `argument` and waits; input
// arriving for the calling thread meanwhile is removed without being
// dispatched (Windows).
LaunchResult run_program_swallowing_input(const char* program, const char* argument);

// Runs the command line "program arguments" (Windows: parsed by the
// system; POSIX: by /bin/sh) and waits, dispatching the calling thread's
// messages meanwhile (Windows).
LaunchResult run_command_line_dispatching(const char* program, const char* arguments);

}  // namespace qnutil::platform
