#include "numeric/triangulation/spatial_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>

#include "numeric/triangulation/box.h"

namespace qnutil::triangulation::region {
namespace {

constexpr unsigned kCurveBits = 16;

// Position of cell (x, y) along the Hilbert curve through a 2^16 grid.
std::uint32_t hilbert_index(std::uint32_t x, std::uint32_t y) {
  constexpr std::uint32_t kSide = 1u << kCurveBits;
  std::uint32_t index = 0;
  for (std::uint32_t half = kSide / 2; half > 0; half /= 2) {
    const std::uint32_t rx = (x & half) != 0, ry = (y & half) != 0;
    index += half * half * ((3 * rx) ^ ry);
    if (ry == 0) {
      if (rx == 1) {
        x = kSide - 1 - x;
        y = kSide - 1 - y;
      }
      std::swap(x, y);
    }
  }
  return index;
}

// A key holds the round (5 bits), the curve position (32) and the index (27).
constexpr unsigned kIndexBits = 27;
constexpr unsigned kCurveShift = kIndexBits;
constexpr unsigned kRoundShift = kIndexBits + 2 * kCurveBits;
constexpr std::uint64_t kLastRound = 31;

// The round a point is drawn into, counted from the last: 0 for half of
// the points, 1 for a quarter, and so on.
std::uint64_t rounds_before_last(std::uint32_t index) {
  std::uint64_t z = index + 0x9E3779B97F4A7C15ull;  // splitmix64
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  z ^= z >> 31;
  return std::min<std::uint64_t>(std::countr_zero(z | (1ull << 63)), kLastRound);
}

// Stable byte-wise radix sort on the bits above the index, which leaves
// equal positions in index order.
void sort_keys(std::vector<std::uint64_t>& keys) {
  std::vector<std::uint64_t> buffer(keys.size());
  for (unsigned shift = kCurveShift; shift < 64; shift += 8) {
    std::array<std::size_t, 257> start{};
    for (const std::uint64_t key : keys) ++start[((key >> shift) & 0xFF) + 1];
    for (unsigned digit = 0; digit < 256; ++digit) start[digit + 1] += start[digit];
    for (const std::uint64_t key : keys) buffer[start[(key >> shift) & 0xFF]++] = key;
    keys.swap(buffer);
  }
}

}  // namespace

std::vector<std::uint32_t> spatial_order(const std::vector<Point>& points) {
  const Box box = bounding_box(points.data(), points.size());
  constexpr std::uint32_t kLastCell = (1u << kCurveBits) - 1;
  const double scale_x = box.width() > 0 ? kLastCell / box.width() : 0;
  const double scale_y = box.height() > 0 ? kLastCell / box.height() : 0;
  std::vector<std::uint64_t> keys(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto x = static_cast<std::uint32_t>((points[i].x - box.min_x) * scale_x);
    const auto y = static_cast<std::uint32_t>((points[i].y - box.min_y) * scale_y);
    const std::uint64_t curve =
        hilbert_index(std::min<std::uint32_t>(x, kLastCell), std::min<std::uint32_t>(y, kLastCell));
    const auto index = static_cast<std::uint32_t>(i);
    keys[i] =
        (kLastRound - rounds_before_last(index)) << kRoundShift | curve << kCurveShift | index;
  }
  sort_keys(keys);
  std::vector<std::uint32_t> order(points.size());
  for (std::size_t i = 0; i < keys.size(); ++i)
    order[i] = static_cast<std::uint32_t>(keys[i] & ((1u << kIndexBits) - 1));
  return order;
}

}  // namespace qnutil::triangulation::region
