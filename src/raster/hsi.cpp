#include "raster/hsi.h"

#include <cmath>

namespace qnutil::raster {
namespace {

constexpr double kPi = 3.1415925;  // pi as the engine has always used it (single precision)
constexpr double kDegreesPerRadian = 57.295784;
const double kSqrt2 = std::sqrt(2.0);
const double kSqrt6 = std::sqrt(6.0);
const double kAtanSqrt6 = std::atan(std::sqrt(6.0));  // saturation of a pure primary

// atan2 with the engine's conventions: x = 0 gives +pi/2 unless y is
// negative (so atan2(0, 0) is +pi/2), and the quadrants use kPi.
double engine_atan2(double y, double x) {
  if (x == 0) return y < 0 ? -kPi / 2 : kPi / 2;
  if (x > 0) return std::atan(y / x);
  if (y >= 0) return kPi - std::atan(-y / x);
  return std::atan(y / x) - kPi;
}

// Truncation toward zero, low byte kept.
uint32_t byte_of(double value) {
  if (!(value > -2e9 && value < 2e9)) return 0;
  return static_cast<uint32_t>(static_cast<int32_t>(value)) & 255u;
}

// Moves two channels along the line through grey by the factor t.
void scale_offsets(double& channel1, double& channel2, double grey, double t) {
  channel1 = grey + (channel1 - grey) * t;
  channel2 = grey + (channel2 - grey) * t;
}

}  // namespace

uint32_t rgb_to_hsi(uint32_t rgb) {
  const int r = (rgb >> 16) & 255, g = (rgb >> 8) & 255, b = rgb & 255;
  const int m = (r + g + b) / 3;
  double hue =
      engine_atan2((2.0 * b - r - g) / kSqrt6, (g - r) / kSqrt2) * kDegreesPerRadian + 150.0;
  const double d =
      std::sqrt(double(r - m) * (r - m) + double(g - m) * (g - m) + double(b - m) * (b - m));
  const double saturation = engine_atan2(d, m) * 100.0 / kAtanSqrt6;
  const double intensity = m / 2.55;
  if (saturation != 0 && intensity != 0) {
    if (hue < 0) hue += 360.0;
    if (hue >= 360.0) hue -= 360.0;
  } else {
    hue = 0;
  }
  return byte_of(hue / 360.0 * 255.0) << 16 | byte_of(saturation / 100.0 * 255.0) << 8 |
         byte_of(intensity / 100.0 * 255.0);
}

uint32_t hsi_to_rgb(uint32_t hsi) {
  const double H = (hsi >> 16) & 255, S = (hsi >> 8) & 255, I = hsi & 255;
  const double i = I / 255.0 * 100.0 * 2.55;
  const double a = (H / 255.0 * 360.0 - 150.0) * kPi / 180.0;
  const double d = std::tan(kAtanSqrt6 * (S / 255.0 * 100.0) / 100.0) * i;
  const double x = std::cos(a) * d / kSqrt2;
  const double y = std::sin(a) * d / kSqrt6;
  double r = i - x - y, g = i + x - y, b = i + 2.0 * y;
  // A channel below 0 is set to 0 and the others are scaled about grey.
  // The factor for green, i / (x - y), is negative (x - y < -i there), so
  // red and blue are mirrored through grey: stored colours come from
  // exactly this, so it stays.
  if (r < 0) {
    r = 0;
    scale_offsets(g, b, i, i / (x + y));
  } else if (g < 0) {
    g = 0;
    scale_offsets(r, b, i, i / (x - y));
  } else if (b < 0) {
    b = 0;
    scale_offsets(r, g, i, i / (-2.0 * y));
  }
  // Then, in turn, a channel above 255 is set to 255 and the others are
  // scaled by (255 - i) over its offset from grey.
  if (r > 255) {
    scale_offsets(g, b, i, (255.0 - i) / (r - i));
    r = 255;
  }
  if (g > 255) {
    scale_offsets(r, b, i, (255.0 - i) / (g - i));
    g = 255;
  }
  if (b > 255) {
    scale_offsets(r, g, i, (255.0 - i) / (b - i));
    b = 255;
  }
  return byte_of(r) << 16 | byte_of(g) << 8 | byte_of(b);
}

}  // namespace qnutil::raster
