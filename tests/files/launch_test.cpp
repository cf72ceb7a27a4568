#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"
#include "support/own_path.h"

using qnutil_test::ScratchDir;
using Clock = std::chrono::steady_clock;

namespace {

// The sleeper waits this long before writing its output file.
constexpr auto kSleeperDelay = std::chrono::milliseconds(400);

struct Launcher {
  const char* name;
  int (*launch)(const char* program, const char* arguments);
  const char* output_name;
  const char* more_arguments;  // after the output file's name
  const char* more_output;     // what the sleeper writes for them
};

int launch_sleeper(const Launcher& launcher, const std::string& arguments) {
#ifdef _WIN32
  const std::string sleeper = qnutil_test::sibling("qnutil_sleeper.exe");
#else
  const std::string sleeper = qnutil_test::sibling("qnutil_sleeper");
#endif
  return launcher.launch(sleeper.c_str(), arguments.c_str());
}

const Launcher kLaunchers[] = {
    {"Quoted", QnUtil_ExecuteProgram, "with space.txt", "", ""},
    {"CommandLine", QnUtil_ExecuteProgramEX, "args.txt", " alpha  beta", "alpha\nbeta\n"}};

// The quoted launcher passes program and argument as one each (a space in
// the name stays); the command-line launcher passes its arguments unquoted.
TEST(Launcher, WaitsForTheProgramAndReturnsOne) {
  for (const Launcher& launcher : kLaunchers) {
    SCOPED_TRACE(launcher.name);
    ScratchDir dir;
    const std::string out = dir.file(launcher.output_name);
    const auto start = Clock::now();
    EXPECT_EQ(launch_sleeper(launcher, out + launcher.more_arguments), 1);
    EXPECT_GE(Clock::now() - start, kSleeperDelay);
    // Written only after the delay: present means the launcher waited.
    EXPECT_EQ(qnutil_test::read_file(out), out + "\n" + launcher.more_output);
  }
}

}  // namespace
