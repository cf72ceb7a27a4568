// Windows only: the display size and scaling as the host asks for them.
#include <gtest/gtest.h>

#include "qnutil/qnutil.h"

#include <windows.h>

namespace {

// Wine's and test machines' desktops are at most 2000 pixels wide: the size
// is the desktop window's, before and after opting into DPI awareness, which
// is available once Shcore provides the scale functions. The virtual
// screen's origin is the system's own.
TEST(MyGetSystemMetrics, NarrowDesktopReportsTheDesktopWindow) {
  EXPECT_EQ(MyGetSystemMetrics(76), GetSystemMetrics(76));
  EXPECT_EQ(MyGetSystemMetrics(77), GetSystemMetrics(77));
  HDC screen = GetDC(nullptr);
  const bool narrow = GetDeviceCaps(screen, HORZRES) <= 2000;
  ReleaseDC(nullptr, screen);
  const HMODULE shcore = LoadLibraryA("Shcore.dll");
  const bool complete = shcore && GetProcAddress(shcore, "SetProcessDpiAwareness") &&
                        GetProcAddress(shcore, "GetDpiForMonitor") &&
                        GetProcAddress(shcore, "GetScaleFactorForDevice");
  for (const bool aware : {false, true}) {
    if (aware) {
      MySetProcessDpiAwareness(2);
      EXPECT_EQ(ProcessDpiAwarenessAvailable(), complete ? 1 : 0);
    }
    RECT desktop{};
    ASSERT_TRUE(GetWindowRect(GetDesktopWindow(), &desktop));
    if (!narrow) continue;
    for (int index : {0, 78}) EXPECT_EQ(MyGetSystemMetrics(index), desktop.right) << aware;
    for (int index : {1, 79}) EXPECT_EQ(MyGetSystemMetrics(index), desktop.bottom) << aware;
  }
}

}  // namespace
