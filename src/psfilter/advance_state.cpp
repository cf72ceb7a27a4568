#include "psfilter/advance_state.h"

#include <algorithm>
#include <cstdlib>

#include "psfilter/ps_filter.h"

namespace qnutil::psfilter {
namespace {

constexpr int kBytesPerPixel = 4;
// Byte of a host pixel (blue, green, red, alpha) that holds plug-in plane p:
// red, green, blue, transparency.
constexpr int kPlaneByte[] = {2, 1, 0, 3};
constexpr std::int16_t kLastPlane = 3;

// A tile buffer: (right - left) x (bottom - top) pixels of interleaved plane
// bytes lo..hi, rows without padding.
struct Tile {
  Rect rect;
  std::int16_t lo;
  std::int16_t hi;

  int planes() const { return hi - lo + 1; }
  std::int32_t row_bytes() const { return (rect.right - rect.left) * planes(); }
  bool planes_valid() const { return 0 <= lo && lo <= hi && hi <= kLastPlane; }
};

// Calls copy(imagePixel, tilePixel) for every pixel of the tile that lies
// inside the image; the parts outside are neither read nor written.
template <class Byte, class Copy>
void for_each_pixel_inside(Byte* image, std::int32_t imageRowBytes, const PSFilter_::Run& run,
                           const Tile& tile, std::uint8_t* buffer, Copy copy) {
  const int top = std::max<int>(tile.rect.top, 0);
  const int bottom = std::min<int>(tile.rect.bottom, run.height);
  const int left = std::max<int>(tile.rect.left, 0);
  const int right = std::min<int>(tile.rect.right, run.width);
  const int planes = tile.planes();
  for (int y = top; y < bottom; ++y) {
    Byte* pixel = image + static_cast<std::ptrdiff_t>(y) * imageRowBytes + left * kBytesPerPixel;
    std::uint8_t* bytes = buffer +
                          static_cast<std::ptrdiff_t>(y - tile.rect.top) * tile.row_bytes() +
                          (left - tile.rect.left) * planes;
    for (int x = left; x < right; ++x, pixel += kBytesPerPixel, bytes += planes) copy(pixel, bytes);
  }
}

// A zero-filled buffer for `tile` holding the image's pixels, or null.
void* read_tile(const std::uint8_t* image, std::int32_t imageRowBytes, const PSFilter_::Run& run,
                const Tile& tile) {
  auto* buffer = static_cast<std::uint8_t*>(
      std::calloc(static_cast<std::size_t>(tile.rect.bottom - tile.rect.top), tile.row_bytes()));
  if (!buffer) return nullptr;
  for_each_pixel_inside(image, imageRowBytes, run, tile, buffer,
                        [&](const std::uint8_t* pixel, std::uint8_t* bytes) {
                          for (int plane = tile.lo; plane <= tile.hi; ++plane)
                            bytes[plane - tile.lo] = pixel[kPlaneByte[plane]];
                        });
  return buffer;
}

void write_tile(std::uint8_t* image, std::int32_t imageRowBytes, const PSFilter_::Run& run,
                const Tile& tile, std::uint8_t* buffer) {
  for_each_pixel_inside(image, imageRowBytes, run, tile, buffer,
                        [&](std::uint8_t* pixel, const std::uint8_t* bytes) {
                          for (int plane = tile.lo; plane <= tile.hi; ++plane)
                            pixel[kPlaneByte[plane]] = bytes[plane - tile.lo];
                        });
}

}  // namespace

OSErr advance_state(PSFilter_& filter) {
  FilterRecord& record = filter.record;
  PSFilter_::Run& run = filter.run;
  std::free(record.inData);
  record.inData = nullptr;
  if (record.outData) {
    const Tile saved{run.saved_out_rect, run.saved_out_lo_plane, run.saved_out_hi_plane};
    write_tile(run.destination, run.source_row_bytes, run, saved,
               static_cast<std::uint8_t*>(record.outData));
    std::free(record.outData);
    record.outData = nullptr;
  }

  OSErr status = noErr;
  const Tile in{record.inRect, record.inLoPlane, record.inHiPlane};
  if (non_empty(in.rect)) {
    if (!in.planes_valid()) return filterBadParameters;
    record.inData = read_tile(run.source, run.source_row_bytes, run, in);
    record.inRowBytes = in.row_bytes();
    if (!record.inData) status = memFullErr;
  }
  const Tile out{record.outRect, record.outLoPlane, record.outHiPlane};
  if (non_empty(out.rect)) {
    if (!out.planes_valid()) return filterBadParameters;
    record.outData = read_tile(run.destination, run.source_row_bytes, run, out);
    record.outRowBytes = out.row_bytes();
    if (!record.outData) return memFullErr;
    run.saved_out_rect = out.rect;
    run.saved_out_lo_plane = out.lo;
    run.saved_out_hi_plane = out.hi;
  }
  return status;
}

void drop_tiles(FilterRecord& record) {
  std::free(record.inData);
  std::free(record.outData);
  record.inData = record.outData = nullptr;
}

}  // namespace qnutil::psfilter
