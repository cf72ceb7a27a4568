// Raster engine effects on an 8000 × 8000 image: the per-pixel adjustments
// and the blur next to memcpy of the same buffer and to a plain scalar loop
// of the same formula, and DrawBitmap 4000 × 4000 → 8000 × 8000.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "raster/qn_bitmap.h"

namespace {

constexpr int kSide = 8000;
constexpr size_t kPixels = size_t(kSide) * kSide;

void fill_pattern(CQnBitmap& image, int width, int height) {
  image.Create(width, height);
  auto* words = reinterpret_cast<uint32_t*>(image.Pixels());
  for (size_t i = 0; i < size_t(width) * height; ++i)
    words[i] = static_cast<uint32_t>(i * 2654435761u) & 0xFFFFFF;
}

CQnBitmap& image() {
  static CQnBitmap* made = [] {
    auto* bitmap = new CQnBitmap;
    fill_pattern(*bitmap, kSide, kSide);
    return bitmap;
  }();
  return *made;
}

void report_pixels(benchmark::State& state, size_t pixels) {
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pixels));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * pixels * 4));
}

void BM_Memcpy(benchmark::State& state) {
  std::vector<uint32_t> from(kPixels, 1), to(kPixels, 2);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), kPixels * 4);
    benchmark::DoNotOptimize(to.data());
  }
  report_pixels(state, kPixels);
}

// The effects work in place; running them repeatedly on the same image
// keeps the cost per pass (the values change, the work does not). The pass
// number lets an effect alternate its argument.
template <class Effect>
void BM_Effect(benchmark::State& state, Effect effect) {
  CQnBitmap& target = image();  // made before timing starts
  int pass = 0;
  for (auto _ : state) effect(target, ++pass);
  report_pixels(state, kPixels);
}

// Scalar baseline: the brightness formula written as a plain loop.
void BM_BrightnessScalarBaseline(benchmark::State& state) {
  auto* words = reinterpret_cast<uint32_t*>(image().Pixels());
  int delta = 1;
  for (auto _ : state) {
    delta = -delta;
    for (size_t i = 0; i < kPixels; ++i) {
      const uint32_t p = words[i];
      uint32_t out = 0;
      for (int shift = 0; shift < 24; shift += 8)
        out |= static_cast<uint32_t>(std::clamp(int((p >> shift) & 255) + delta, 0, 255)) << shift;
      words[i] = out;
    }
    benchmark::DoNotOptimize(words);
  }
  report_pixels(state, kPixels);
}

void BM_DrawBitmap(benchmark::State& state) {
  static CQnBitmap* source = [] {
    auto* bitmap = new CQnBitmap;
    fill_pattern(*bitmap, kSide / 2, kSide / 2);
    return bitmap;
  }();
  CQnBitmap& target = image();
  target.SetInterpolationMode(static_cast<int>(state.range(0)));
  const int opacity = static_cast<int>(state.range(1));
  for (auto _ : state)
    target.DrawBitmap(0, 0, kSide - 1, kSide - 1, source, 0, 0, kSide / 2 - 1, kSide / 2 - 1,
                      opacity);
  report_pixels(state, kPixels);
}

BENCHMARK(BM_Memcpy)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Effect, Threshold, [](CQnBitmap& b, int) {
  b.Threshold(128);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Effect, Brightness, [](CQnBitmap& b, int pass) {
  b.Brightness(pass % 2 ? -1 : 1);
})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BrightnessScalarBaseline)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Effect, Contrast, [](CQnBitmap& b, int) {
  b.Contrast(2);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Effect, Tint, [](CQnBitmap& b, int) {
  b.Tint(0x406080);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Effect, Blur, [](CQnBitmap& b, int) {
  b.Blur();
})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawBitmap)
    ->ArgNames({"mode", "opacity"})
    ->Args({0, 100})
    ->Args({0, 50})
    ->Args({1, 100})
    ->Args({1, 50})
    ->Args({2, 100})
    ->Unit(benchmark::kMillisecond);

}  // namespace
