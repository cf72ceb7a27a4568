// Set-up of the state the animated effects keep in the image: the colour
// ramp with its byte map, the two word maps and the noise table, each with
// a working copy of the image as it was when set up.
#include <chrono>
#include <cstdlib>

#include "raster/hsi.h"
#include "raster/qn_bitmap.h"

namespace {

template <class T>
T* zeroed_map(const CQnBitmap& image) {
  return static_cast<T*>(
      std::calloc(static_cast<size_t>(image.Width()) * image.Height(), sizeof(T)));
}

void fresh_copy(CQnBitmap*& slot, const CQnBitmap& image) {
  delete slot;
  slot = new CQnBitmap;
  slot->Copy(&image);
}

}  // namespace

void CQnBitmap::ReleaseEffectState() {
  std::free(ramp_byte_map_);
  std::free(double_map_front_);
  std::free(double_map_back_);
  std::free(noise_table_);
  delete ramp_source_;
  delete double_map_source_;
  delete noise_source_;
  ramp_byte_map_ = nullptr;
  double_map_front_ = double_map_back_ = nullptr;
  noise_table_ = nullptr;
  ramp_source_ = double_map_source_ = noise_source_ = nullptr;
}

void CQnBitmap::InitColourRamp() {
  if (!InWorkingFormat()) return;
  std::free(ramp_byte_map_);
  ramp_byte_map_ = zeroed_map<uint8_t>(*this);
  fresh_copy(ramp_source_, *this);
  // Entry n: hue n / 3, full saturation, intensity 2n (up to 255).
  for (uint32_t n = 0; n < kColourRampEntries; ++n) {
    const uint32_t intensity = n * 2 < 255 ? n * 2 : 255;
    const uint32_t rgb = qnutil::raster::hsi_to_rgb((n / 3) << 16 | 255u << 8 | intensity);
    colour_ramp_[4 * n] = static_cast<uint8_t>(rgb);
    colour_ramp_[4 * n + 1] = static_cast<uint8_t>(rgb >> 8);
    colour_ramp_[4 * n + 2] = static_cast<uint8_t>(rgb >> 16);
    colour_ramp_[4 * n + 3] = 0;
  }
}

void CQnBitmap::InitNoiseTable() {
  if (!InWorkingFormat()) return;
  std::free(noise_table_);
  noise_table_ = static_cast<float*>(std::malloc(sizeof(float) * kNoiseTableValues));
  fresh_copy(noise_source_, *this);
  if (!noise_table_) return;
  // Seeded from the millisecond clock like the tick count it has always
  // used: every set-up gives a different pattern. Values are rand / 32768
  // from 15 random bits, so that they stay in [0, 1) where the C library's
  // generator is wider than 15 bits.
  const auto ticks = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
  std::srand(static_cast<unsigned>(ticks.count()));
  for (int i = 0; i < kNoiseTableValues; ++i)
    noise_table_[i] = static_cast<float>(std::rand() % 32768) * 3.0517578e-5f;
}

void CQnBitmap::InitDoubleMap() {
  if (!InWorkingFormat()) return;
  std::free(double_map_front_);
  std::free(double_map_back_);
  double_map_front_ = zeroed_map<uint32_t>(*this);
  double_map_back_ = zeroed_map<uint32_t>(*this);
  fresh_copy(double_map_source_, *this);
}
