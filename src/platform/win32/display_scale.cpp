#include "platform/display_scale.h"

#include <windows.h>

namespace qnutil::platform {
namespace {

// Shcore.dll's entry points, declared here: the library must load on
// systems older than Windows 8.1, which lack them.
using SetProcessDpiAwarenessFn = HRESULT(WINAPI*)(int awareness);
using GetDpiForMonitorFn = HRESULT(WINAPI*)(HMONITOR monitor, int type, UINT* x, UINT* y);
using GetScaleFactorForDeviceFn = int(WINAPI*)(int device);
using GetScaleFactorForMonitorFn = HRESULT(WINAPI*)(HMONITOR monitor, int* factor);

constexpr int kMonitorDpiEffective = 0;  // MDT_EFFECTIVE_DPI
constexpr int kDevicePrimary = 0;        // DEVICE_PRIMARY

// Process-wide and unguarded: set once at start-up on the main thread.
struct ShcoreFunctions {
  SetProcessDpiAwarenessFn set_awareness = nullptr;
  GetDpiForMonitorFn dpi_for_monitor = nullptr;
  GetScaleFactorForDeviceFn scale_for_device = nullptr;
  // Looked up with the others, though the primary device's factor is what
  // the size correction uses.
  GetScaleFactorForMonitorFn scale_for_monitor = nullptr;
};
ShcoreFunctions g_shcore;

template <class Function>
Function entry(HMODULE module, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

bool set_process_dpi_awareness(int awareness, int& result, bool& scaling_available) {
  if (!scaling_available) {
    // Each call that finds scaling unavailable loads the library again; the
    // reference is kept for the life of the process.
    const HMODULE shcore = LoadLibraryA("Shcore.dll");
    g_shcore.set_awareness = entry<SetProcessDpiAwarenessFn>(shcore, "SetProcessDpiAwareness");
    g_shcore.dpi_for_monitor = entry<GetDpiForMonitorFn>(shcore, "GetDpiForMonitor");
    g_shcore.scale_for_device = entry<GetScaleFactorForDeviceFn>(shcore, "GetScaleFactorForDevice");
    g_shcore.scale_for_monitor =
        entry<GetScaleFactorForMonitorFn>(shcore, "GetScaleFactorForMonitor");
  }
  if (!g_shcore.set_awareness) {
    scaling_available = false;
    return false;
  }
  result = static_cast<int>(g_shcore.set_awareness(awareness));
  scaling_available = g_shcore.dpi_for_monitor && g_shcore.scale_for_device;
  return true;
}

bool desktop_facts(bool with_scaling, DesktopFacts& facts) {
  const HWND desktop = GetDesktopWindow();
  const HDC device = GetDC(desktop);
  if (!device) return false;
  facts.device_width = GetDeviceCaps(device, HORZRES);
  facts.device_height = GetDeviceCaps(device, VERTRES);
  ReleaseDC(desktop, device);
  RECT rect{};
  GetWindowRect(desktop, &rect);
  facts.window_right = rect.right;
  facts.window_bottom = rect.bottom;
  facts.scale_factor = 0;
  if (with_scaling && g_shcore.dpi_for_monitor && g_shcore.scale_for_device) {
    const HMONITOR primary = MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTOPRIMARY);
    UINT dpi_x = 0, dpi_y = 0;
    // Asked for, as the host always has, though only the factor is used.
    g_shcore.dpi_for_monitor(primary, kMonitorDpiEffective, &dpi_x, &dpi_y);
    facts.scale_factor = g_shcore.scale_for_device(kDevicePrimary);
  }
  return true;
}

int system_metric(int index) { return GetSystemMetrics(index); }

}  // namespace qnutil::platform
