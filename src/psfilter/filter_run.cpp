#include "psfilter/filter_run.h"

#include <cstdlib>
#include <cstring>

#include "psfilter/advance_state.h"
#include "psfilter/host_callbacks.h"
#include "psfilter/ps_filter.h"

namespace qnutil::psfilter {
namespace {

constexpr std::int32_t kUnusable = -1;
constexpr std::int32_t kBytesPerPixel = 4;
// Rectangles of the record hold 16-bit coordinates.
constexpr std::int32_t kMaxSide = 32767;
// 96.5 dots per inch in 16.16 fixed point, as the host has always said.
constexpr Fixed kResolution = 0x608000;
// The result block is four times the image, as the host has always made it.
constexpr std::uint64_t kResultBlockFactor = 4;

std::int16_t call(PSFilter_& filter, FilterSelector selector) {
  std::int16_t result = 0;
  filter.entry(selector, &filter.record, &filter.data, &result);
  return result;
}

bool usable(const PSFilter_& filter, const ApplyRequest& request) {
  return filter.valid && filter.entry && request.bits && request.width > 0 && request.height > 0 &&
         request.width <= kMaxSide && request.height <= kMaxSide &&
         request.rowBytes / kBytesPerPixel >= request.width;
}

bool tiles_pending(const FilterRecord& record) {
  return non_empty(record.inRect) || non_empty(record.outRect) ||
         (record.haveMask && non_empty(record.maskRect));
}

void set_run_fields(PSFilter_& filter, const ApplyRequest& request, unsigned char* destination) {
  // Tiles a plug-in still held when it abandoned its last run belong to
  // that run's image.
  drop_tiles(filter.record);
  filter.run = PSFilter_::Run{};
  filter.run.source = request.bits;
  filter.run.source_row_bytes = request.rowBytes;
  filter.run.destination = destination;
  filter.run.width = request.width;
  filter.run.height = request.height;
  filter.run.progress = request.progress;
  filter.run.user_value = request.userValue;

  FilterRecord& record = filter.record;
  const Point size{static_cast<std::int16_t>(request.height),
                   static_cast<std::int16_t>(request.width)};
  record.imageSize = size;
  record.planes = 3;
  record.filterRect = Rect{0, 0, size.v, size.h};
  record.imageHRes = record.imageVRes = kResolution;
  record.floatCoord = record.wholeSize = size;
  record.parameters = filter.last_parameters;
}

// Finish follows only a failing continue step, and a continue error does
// not fail the run: plug-ins written against this host rely on both.
std::int32_t process(PSFilter_& filter) {
  if (const std::int16_t started = call(filter, filterSelectorStart)) return started;
  while (tiles_pending(filter.record)) {
    advance_state(filter);
    if (call(filter, filterSelectorContinue) != noErr) call(filter, filterSelectorFinish);
  }
  advance_state(filter);
  return noErr;
}

}  // namespace

std::int32_t run_filter(PSFilter_& filter, const ApplyRequest& request,
                        unsigned char** resultImage) {
  *resultImage = nullptr;
  if (!usable(filter, request)) return kUnusable;
  const std::uint64_t imageBytes = std::uint64_t(request.height) * std::uint64_t(request.rowBytes);
  if (imageBytes * kResultBlockFactor > SIZE_MAX) return kUnusable;
  auto* result = static_cast<unsigned char*>(
      std::malloc(static_cast<std::size_t>(imageBytes * kResultBlockFactor)));
  if (!result) return kUnusable;
  std::memcpy(result, request.bits, static_cast<std::size_t>(imageBytes));
  *resultImage = result;

  if (!(request.repeatLast && filter.last_parameters)) {
    initialise_procs(filter);
    const std::int16_t status = call(filter, filterSelectorParameters);
    filter.last_parameters = filter.record.parameters;
    if (status < 0) return status;
  }
  initialise_procs(filter);
  set_run_fields(filter, request, result);
  const std::int16_t prepared = call(filter, filterSelectorPrepare);
  if (prepared < 0) return prepared;
  return process(filter);
}

}  // namespace qnutil::psfilter
