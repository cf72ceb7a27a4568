#include "psfilter/host_callbacks.h"

#include <windows.h>

#include <cstring>

#include "psfilter/advance_state.h"
#include "psfilter/buffer_suite.h"
#include "psfilter/display_pixels.h"
#include "psfilter/handle_suite.h"
#include "psfilter/ps_filter.h"

namespace qnutil::psfilter {
namespace {

PSFilter_* g_current = nullptr;

constexpr std::int16_t kTileSize = 256;
constexpr std::int16_t kColourPlanes = 3;

// Asked between steps; true stops the plug-in.
Boolean abort_proc() noexcept {
  if (!g_current) return true;
  PSFilter_::Run& run = g_current->run;
  if (!run.progress) return false;
  if (run.cancelled) return true;
  return !run.progress(run.last_fraction, run.user_value);
}

void progress_proc(std::int32_t done, std::int32_t total) noexcept {
  if (!g_current) return;
  PSFilter_::Run& run = g_current->run;
  run.last_fraction = static_cast<float>(done) / static_cast<float>(total);
  if (run.progress && !run.progress(run.last_fraction, run.user_value)) run.cancelled = true;
}

OSErr advance_state_proc() noexcept { return g_current ? advance_state(*g_current) : -1; }

void host_proc(std::int16_t, std::intptr_t*) noexcept {}

void process_event(void*) noexcept {}

struct ProcessWindowSearch {
  DWORD process;
  HWND found;
};

BOOL CALLBACK match_main_window(HWND window, LPARAM context) {
  auto& search = *reinterpret_cast<ProcessWindowSearch*>(context);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != search.process || !IsWindowVisible(window) || GetWindow(window, GW_OWNER))
    return TRUE;
  search.found = window;
  return FALSE;
}

// The first visible top-level window of this process without an owner:
// the host application's main window, which owns the plug-in's dialogs.
HWND host_main_window() {
  ProcessWindowSearch search{GetCurrentProcessId(), nullptr};
  EnumWindows(match_main_window, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

void set_current_filter(PSFilter_* filter) { g_current = filter; }

void initialise_procs(PSFilter_& filter) {
  if (filter.procs_initialised) return;
  filter.buffer_procs = make_buffer_procs();
  filter.handle_procs = make_handle_procs();
  filter.platform_data.hwnd = reinterpret_cast<std::intptr_t>(host_main_window());

  FilterRecord& record = filter.record;
  record.serialNumber = 0;
  record.abortProc = abort_proc;
  record.progressProc = progress_proc;
  record.maxSpace = kHostSpace;
  record.backColor[3] = 0xFF;
  record.foreColor[3] = 0xFF;
  // The signature's bytes in reading order, as the host has always stored it.
  std::memcpy(&record.hostSig, "APRI", sizeof record.hostSig);
  record.hostProc = host_proc;
  record.imageMode = plugInModeRGBColor;
  record.platformData = &filter.platform_data;
  record.bufferProcs = &filter.buffer_procs;
  record.processEvent = process_event;
  record.displayPixels = display_pixels;
  record.handleProcs = &filter.handle_procs;
  record.dummyPlaneValue = -1;
  record.advanceState = advance_state_proc;
  record.supportsAbsolute = true;
  record.inLayerPlanes = record.outLayerPlanes = record.absLayerPlanes = kColourPlanes;
  record.inTransparencyMask = record.outTransparencyMask = record.absTransparencyMask = 1;
  record.inPlaneBytes = record.outPlaneBytes = 1;
  record.inTileHeight = record.inTileWidth = kTileSize;
  record.absTileHeight = record.absTileWidth = kTileSize;
  record.outTileHeight = record.outTileWidth = kTileSize;
  record.maskTileHeight = record.maskTileWidth = kTileSize;
  record.depth = 8;
  filter.procs_initialised = true;
}

}  // namespace qnutil::psfilter
