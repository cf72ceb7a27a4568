// Interpolation mode 2 of DrawBitmap: a smoothing resample of the clipped
// source rectangle onto the clipped destination rectangle.
//
// Each axis gets its own filter: where the source extent is larger than the
// destination extent every destination pixel is the area-weighted mean of
// the source pixels it covers; otherwise Catmull-Rom bicubic interpolation
// at the destination pixel's centre, with edge pixels repeated. Rows are
// filtered horizontally on demand and kept only while vertical taps need
// them. The result is mixed with the destination by the opacity weight as
// in the other modes.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "raster/compose_common.h"

namespace qnutil::raster {
namespace {

struct Taps {
  int first;                   // source index of the first tap, relative to the rectangle
  std::vector<float> weights;  // sum to 1
};

float catmull_rom(float t) {
  t = std::fabs(t);
  if (t < 1) return (1.5f * t - 2.5f) * t * t + 1;
  if (t < 2) return ((-0.5f * t + 2.5f) * t - 4) * t + 2;
  return 0;
}

// Filter taps of every destination index along one axis; taps never leave
// 0 .. source_extent - 1.
std::vector<Taps> axis_taps(int source_extent, int destination_extent) {
  std::vector<Taps> taps(destination_extent);
  const double scale = double(source_extent) / destination_extent;
  for (int k = 0; k < destination_extent; ++k) {
    std::vector<std::pair<int, double>> contributions;
    int low = source_extent, high = -1;
    auto add = [&](int index, double weight) {
      index = std::clamp(index, 0, source_extent - 1);
      contributions.emplace_back(index, weight);
      low = std::min(low, index);
      high = std::max(high, index);
    };
    if (scale > 1) {
      const double from = k * scale, to = (k + 1) * scale;
      for (int p = static_cast<int>(from); p < to && p < source_extent; ++p)
        add(p, (std::min(to, p + 1.0) - std::max(from, double(p))) / scale);
    } else {
      const double centre = (k + 0.5) * scale - 0.5;
      const int base = static_cast<int>(std::floor(centre));
      for (int p = base - 1; p <= base + 2; ++p)
        add(p, catmull_rom(static_cast<float>(centre - p)));
    }
    taps[k].weights.assign(high - low + 1, 0.0f);
    for (const auto& [index, weight] : contributions)
      taps[k].weights[index - low] += static_cast<float>(weight);
    taps[k].first = low;
  }
  return taps;
}

uint32_t to_byte(float value) {
  return static_cast<uint32_t>(std::clamp(std::lround(value), 0L, 255L));
}

}  // namespace

void draw_smooth(const PictureView& destination, const PictureView& source, const ClippedRects& r,
                 int a) {
  const auto columns = axis_taps(r.source_width, r.dest_width);
  const auto rows = axis_taps(r.source_height, r.dest_height);
  // Horizontally filtered source rows (3 floats a pixel), made on demand.
  std::vector<std::vector<float>> filtered(r.source_height);
  auto filtered_row = [&](int index) -> const std::vector<float>& {
    std::vector<float>& row = filtered[index];
    if (row.empty()) {
      row.assign(size_t(r.dest_width) * 3, 0.0f);
      const uint32_t* from = source.row(r.corners.sy0 + index) + r.corners.sx0;
      for (int i = 0; i < r.dest_width; ++i)
        for (size_t t = 0; t < columns[i].weights.size(); ++t) {
          const uint32_t p = from[columns[i].first + t];
          const float w = columns[i].weights[t];
          for (int c = 0; c < 3; ++c) row[3 * i + c] += w * float((p >> (8 * c)) & 255);
        }
    }
    return row;
  };
  std::vector<float> sample(size_t(r.dest_width) * 3);
  int released = 0;
  for (int j = 0; j < r.dest_height; ++j) {
    const Taps& taps = rows[j];
    for (; released < taps.first; ++released) std::vector<float>().swap(filtered[released]);
    std::fill(sample.begin(), sample.end(), 0.0f);
    for (size_t t = 0; t < taps.weights.size(); ++t) {
      const std::vector<float>& row = filtered_row(taps.first + static_cast<int>(t));
      for (size_t n = 0; n < sample.size(); ++n) sample[n] += taps.weights[t] * row[n];
    }
    uint32_t* to = destination.row(r.corners.y0 + j) + r.corners.x0;
    for (int i = 0; i < r.dest_width; ++i) {
      const uint32_t word = to_byte(sample[3 * i]) | to_byte(sample[3 * i + 1]) << 8 |
                            to_byte(sample[3 * i + 2]) << 16;
      to[i] = mix(word, to[i], static_cast<uint32_t>(a));
    }
  }
}

}  // namespace qnutil::raster
