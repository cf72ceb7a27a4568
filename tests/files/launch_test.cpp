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
  int dispatches;  // how often a message waiting in the queue reaches its window
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
    {"Quoted", QnUtil_ExecuteProgram, 0, "with space.txt", "", ""},
    {"CommandLine", QnUtil_ExecuteProgramEX, 1, "args.txt", " alpha  beta", "alpha\nbeta\n"}};

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

#ifdef _WIN32

int g_dispatched = 0;

LRESULT CALLBACK count_dispatches(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_APP) ++g_dispatched;
  return DefWindowProcA(window, message, w, l);
}

// The quoted launcher keeps the caller's windows frozen: waiting input
// leaves the queue undispatched. The command-line launcher dispatches it.
// Either way the queue is empty afterwards.
TEST(Launcher, EmptiesTheQueueDispatchingAsDesigned) {
  WNDCLASSA window_class{};
  window_class.lpfnWndProc = count_dispatches;
  window_class.lpszClassName = "QnUtilLaunchTestWindow";
  RegisterClassA(&window_class);
  const HWND window = CreateWindowExA(0, window_class.lpszClassName, "", 0, 0, 0, 0, 0,
                                      HWND_MESSAGE, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  for (const Launcher& launcher : kLaunchers) {
    g_dispatched = 0;
    ScratchDir dir;
    PostMessageA(window, WM_APP, 0, 0);
    EXPECT_EQ(launch_sleeper(launcher, dir.file("out.txt")), 1);
    EXPECT_EQ(g_dispatched, launcher.dispatches) << launcher.name;
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, window, WM_APP, WM_APP, PM_NOREMOVE));
  }
  DestroyWindow(window);
}

#endif

}  // namespace
