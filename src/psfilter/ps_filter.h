// The filter object: one loaded plug-in module, its parameter block and the
// state of the run in progress.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "psfilter/filter_record.h"
#include "psfilter/pipl_parser.h"
#include "qnutil/psfilter_win32.h"

// Named as the host application knows it; opaque to C callers.
struct PSFilter_ {
  // Loads the module and reads its property lists; `valid` tells whether
  // one of them described a usable filter.
  explicit PSFilter_(const char* path);
  virtual ~PSFilter_();
  PSFilter_(const PSFilter_&) = delete;
  PSFilter_& operator=(const PSFilter_&) = delete;

  // Where the tiles of a run come from and go to.
  struct Run {
    const std::uint8_t* source = nullptr;
    std::int32_t source_row_bytes = 0;
    std::uint8_t* destination = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    AVPSFilterProgressProc progress = nullptr;
    std::int32_t user_value = 0;
    float last_fraction = 0;
    bool cancelled = false;
    // The output tile handed out last, for writing it back.
    qnutil::psfilter::Rect saved_out_rect{};
    std::int16_t saved_out_lo_plane = 0;
    std::int16_t saved_out_hi_plane = 0;
  };

  // Zero-filled up to the newest documented size of the record.
  qnutil::psfilter::FilterRecord record{};
  Run run;
  HMODULE module = nullptr;
  qnutil::psfilter::PluginEntry entry = nullptr;
  // Name of the exported entry point, as the property list gives it.
  std::string entry_name;
  bool procs_initialised = false;
  bool valid = false;
  // Parameters kept from the last parameters step; set means the last
  // filter can be repeated.
  qnutil::psfilter::Handle last_parameters = nullptr;
  qnutil::psfilter::PiplTexts texts;
  // The plug-in's own data slot, kept between calls. Pointer-sized: 64-bit
  // plug-ins keep pointers in it.
  std::intptr_t data = 0;
  // Blocks the record points to.
  qnutil::psfilter::PlatformData platform_data{};
  qnutil::psfilter::BufferProcs buffer_procs{};
  qnutil::psfilter::HandleProcs handle_procs{};
};
