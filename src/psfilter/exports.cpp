// The AV* exports of the filter plug-in host.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "frame/export_guard.h"
#include "psfilter/filter_run.h"
#include "psfilter/host_callbacks.h"
#include "psfilter/ps_filter.h"
#include "qnutil/psfilter_win32.h"

namespace {

// A failed load reports -1 whatever the system said: no category or name
// was handed out, and the host has always answered -1 then.
constexpr std::int32_t kLoadFailed = -1;

char* copy_text(const std::string& text) {
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy) std::memcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

void free_text(char** text) {
  if (!text) return;
  std::free(*text);
  *text = nullptr;
}

// Clears the current filter on every way out of a run.
struct CurrentFilter {
  explicit CurrentFilter(PSFilter_* filter) { qnutil::psfilter::set_current_filter(filter); }
  ~CurrentFilter() { qnutil::psfilter::set_current_filter(nullptr); }
  CurrentFilter(const CurrentFilter&) = delete;
  CurrentFilter& operator=(const CurrentFilter&) = delete;
};

}  // namespace

extern "C" QNUTIL_API bool QNUTIL_CALL AVGetPSFilterAndInfo(const char* path, char** category,
                                                            char** name, PSFilter_** filter,
                                                            std::int32_t* error) {
  if (category) *category = nullptr;
  if (name) *name = nullptr;
  if (error) *error = kLoadFailed;
  if (!filter) return false;
  *filter = nullptr;
  return qnutil::frame::guard_export(false, [&] {
    auto loaded = std::make_unique<PSFilter_>(path);
    if (!loaded->valid) return false;
    char* categoryCopy = category ? copy_text(loaded->texts.category) : nullptr;
    char* nameCopy = name ? copy_text(loaded->texts.name) : nullptr;
    if ((category && !categoryCopy) || (name && !nameCopy)) {
      std::free(categoryCopy);
      std::free(nameCopy);
      return false;
    }
    if (category) *category = categoryCopy;
    if (name) *name = nameCopy;
    if (error) *error = 0;
    *filter = loaded.release();
    return true;
  });
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilter(PSFilter_** filter) {
  if (!filter) return true;
  delete *filter;
  *filter = nullptr;
  return true;
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilterInfo(char** category, char** name) {
  free_text(category);
  free_text(name);
  return true;
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilterImage(unsigned char** image) {
  if (!image) return true;
  std::free(*image);
  *image = nullptr;
  return true;
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVPSFilterCanDoLastFilter(PSFilter_* filter,
                                                                 bool* canRepeat) {
  if (!filter || !canRepeat) return false;
  *canRepeat = filter->last_parameters != nullptr;
  return true;
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVGetPSFilterEntryName(PSFilter_* filter, char* buffer,
                                                              std::int32_t size) {
  if (!filter || !buffer || size <= 0 ||
      filter->entry_name.size() >= static_cast<std::size_t>(size))
    return false;
  filter->entry_name.copy(buffer, filter->entry_name.size());
  buffer[filter->entry_name.size()] = '\0';
  return true;
}

extern "C" QNUTIL_API bool QNUTIL_CALL AVApplyPSFilter(
    PSFilter_* filter, bool repeatLast, AVPSFilterProgressProc progress, std::int32_t userValue,
    const unsigned char* bits, std::int32_t width, std::int32_t height, std::int32_t rowBytes,
    unsigned char** resultImage, std::int32_t* result) {
  std::int32_t status = kLoadFailed;
  if (filter && resultImage) {
    const CurrentFilter current(filter);
    status = qnutil::psfilter::run_filter(
        *filter, {repeatLast, progress, userValue, bits, width, height, rowBytes}, resultImage);
  }
  if (result) *result = status;
  return status >= 0;
}
