#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"
#include "system_test_support.h"

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
  return launcher.launch(system_test::sibling_program("qnutil_sleeper").c_str(), arguments.c_str());
}

class LauncherTest : public testing::TestWithParam<Launcher> {};

// The quoted launcher passes program and argument as one each (a space in
// the name stays); the command-line launcher passes its arguments unquoted.
TEST_P(LauncherTest, WaitsForTheProgramAndReturnsOne) {
  ScratchDir dir;
  const std::string out = dir.file(GetParam().output_name);
  const auto start = Clock::now();
  EXPECT_EQ(launch_sleeper(GetParam(), out + GetParam().more_arguments), 1);
  EXPECT_GE(Clock::now() - start, kSleeperDelay);
  // Written only after the delay: present means the launcher waited.
  EXPECT_EQ(qnutil_test::read_file(out), out + "\n" + GetParam().more_output);
}

// A program that cannot start counts as a run; nulls do not crash.
TEST_P(LauncherTest, MissingProgramCountsAsARun) {
  ScratchDir dir;
  EXPECT_EQ(GetParam().launch(dir.file("no-such-program").c_str(), "x"), 1);
  EXPECT_EQ(GetParam().launch(nullptr, nullptr), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Both, LauncherTest,
    testing::Values(Launcher{"Quoted", QnUtil_ExecuteProgram, 0, "with space.txt", "", ""},
                    Launcher{"CommandLine", QnUtil_ExecuteProgramEX, 1, "args.txt", " alpha  beta",
                             "alpha\nbeta\n"}),
    [](const auto& info) { return std::string(info.param.name); });

#ifdef _WIN32

// A window of the calling thread that counts what reaches its procedure.
class CountingWindow {
 public:
  CountingWindow() {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = &CountingWindow::procedure;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.lpszClassName = "QnUtilLaunchTestWindow";
    RegisterClassA(&window_class);
    window_ = CreateWindowExA(0, window_class.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE,
                              nullptr, window_class.hInstance, nullptr);
    dispatched_ = 0;
  }
  ~CountingWindow() { DestroyWindow(window_); }
  HWND handle() const { return window_; }
  static int dispatched() { return dispatched_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_APP) ++dispatched_;
    return DefWindowProcA(window, message, w, l);
  }
  HWND window_;
  static inline int dispatched_ = 0;
};

bool queue_holds_message(HWND window) {
  MSG message;
  return PeekMessageA(&message, window, WM_APP, WM_APP, PM_NOREMOVE) != FALSE;
}

// The quoted launcher keeps the caller's windows frozen: waiting input
// leaves the queue undispatched. The command-line launcher dispatches it.
TEST_P(LauncherTest, EmptiesTheQueueDispatchingAsDesigned) {
  CountingWindow window;
  ASSERT_NE(window.handle(), nullptr);
  ScratchDir dir;
  PostMessageA(window.handle(), WM_APP, 0, 0);
  EXPECT_EQ(launch_sleeper(GetParam(), dir.file("out.txt")), 1);
  EXPECT_EQ(CountingWindow::dispatched(), GetParam().dispatches);
  EXPECT_FALSE(queue_holds_message(window.handle()));
}

#endif

}  // namespace
