// Opening a plug-in module: the first "PIPL" resource that describes a
// usable filter gives the entry point, category and name.
#include <windows.h>

#include "psfilter/advance_state.h"
#include "psfilter/four_char_code.h"
#include "psfilter/handle_suite.h"
#include "psfilter/ps_filter.h"

namespace {

using namespace qnutil::psfilter;

#ifdef _WIN64
constexpr std::uint32_t kEntryKey = kEntryKeyX64;
#else
constexpr std::uint32_t kEntryKey = kEntryKeyX86;
#endif

void read_resource(PSFilter_& filter, LPCSTR type, LPSTR name) {
  HRSRC info = FindResourceA(filter.module, name, type);
  if (!info) return;
  HGLOBAL loaded = LoadResource(filter.module, info);
  const void* bytes = loaded ? LockResource(loaded) : nullptr;
  if (!bytes) return;
  const auto entryName = read_pipl(static_cast<const unsigned char*>(bytes),
                                   SizeofResource(filter.module, info), kEntryKey, filter.texts);
  if (!entryName) return;
  FARPROC address = GetProcAddress(filter.module, entryName->c_str());
  if (!address) return;
  filter.entry = reinterpret_cast<PluginEntry>(reinterpret_cast<void*>(address));
  filter.entry_name = *entryName;
  filter.valid = true;
}

// Always continues the enumeration; lists after the first valid one are
// not read.
BOOL CALLBACK on_pipl_resource(HMODULE, LPCSTR type, LPSTR name, LONG_PTR context) noexcept {
  auto& filter = *reinterpret_cast<PSFilter_*>(context);
  if (filter.valid) return TRUE;
  try {
    read_resource(filter, type, name);
  } catch (...) {
    // Out of memory for the texts: this list does not count.
  }
  return TRUE;
}

}  // namespace

PSFilter_::PSFilter_(const char* path) {
  if (!path) return;
  module = LoadLibraryA(path);
  if (!module) return;
  EnumResourceNamesA(module, "PIPL", on_pipl_resource, reinterpret_cast<LONG_PTR>(this));
}

PSFilter_::~PSFilter_() {
  drop_tiles(record);
  // The kept parameters would outlive every way to use them.
  if (last_parameters) dispose_handle(last_parameters);
  if (module) FreeLibrary(module);
}
