// Raster engine: BMP load/save of a 24-bit 8000 × 8000 image on tmpfs next
// to `cp` of the same file, and the whole-image conversions, mirrors and
// crop next to memcpy of a buffer the size of the working image.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "raster/qn_bitmap.h"

namespace {

constexpr int kWidth = 8000, kHeight = 8000;
constexpr size_t kWorkingBytes = size_t(kWidth) * kHeight * 4;

const std::filesystem::path kDir =
    std::filesystem::exists("/dev/shm") ? "/dev/shm" : std::filesystem::temp_directory_path();

// A working-format image with every byte touched (no lazy zero pages).
const CQnBitmap& source_image() {
  static CQnBitmap* image = [] {
    auto* made = new CQnBitmap;
    made->Create(kWidth, kHeight);
    auto* words = reinterpret_cast<uint32_t*>(made->Pixels());
    for (size_t i = 0; i < size_t(kWidth) * kHeight; ++i)
      words[i] = static_cast<uint32_t>(i * 2654435761u) & 0xFFFFFF;
    return made;
  }();
  return *image;
}

std::string bmp_path() {
  static const std::string path = [] {
    const std::string file = (kDir / "qnutil-bench-8000.bmp").string();
    CQnBitmap image;
    image.Copy(&source_image());
    image.SaveToFile(file.c_str());
    return file;
  }();
  return path;
}

void set_bytes(benchmark::State& state, size_t bytes) {
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}

void BM_Memcpy(benchmark::State& state) {
  std::vector<uint8_t> from(kWorkingBytes, 1), to(kWorkingBytes, 2);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), kWorkingBytes);
    benchmark::DoNotOptimize(to.data());
  }
  set_bytes(state, kWorkingBytes);
}

void BM_CpCommand(benchmark::State& state) {
  const std::string command = "cp " + bmp_path() + " " + (kDir / "qnutil-bench-copy.bmp").string();
  for (auto _ : state)
    if (std::system(command.c_str()) != 0) state.SkipWithError("cp failed");
}

void BM_Load24Bit(benchmark::State& state) {
  const std::string path = bmp_path();
  for (auto _ : state) {
    CQnBitmap image;
    image.Load(path.c_str());
    benchmark::DoNotOptimize(image.Pixels());
  }
}

void BM_Save24Bit(benchmark::State& state) {
  CQnBitmap image;
  image.Copy(&source_image());
  const std::string path = (kDir / "qnutil-bench-saved.bmp").string();
  for (auto _ : state) image.SaveToFile(path.c_str());
}

// Operations that change the image run on a fresh copy each time; the copy
// is not timed.
template <class Operation>
void run_on_copy(benchmark::State& state, Operation operation) {
  CQnBitmap image;
  for (auto _ : state) {
    state.PauseTiming();
    image.Copy(&source_image());
    state.ResumeTiming();
    operation(image);
    benchmark::DoNotOptimize(image.Pixels());
  }
  set_bytes(state, kWorkingBytes);
}

void BM_ConvertTo24Bit(benchmark::State& state) {
  run_on_copy(state, [](CQnBitmap& image) { image.ConvertTo24Bit(); });
}

void BM_ConvertTo32BitFrom24(benchmark::State& state) {
  CQnBitmap image;
  for (auto _ : state) {
    state.PauseTiming();
    image.Copy(&source_image());
    image.ConvertTo24Bit();
    state.ResumeTiming();
    image.ConvertTo32Bit();
  }
  set_bytes(state, kWorkingBytes);
}

void BM_FlipVertical(benchmark::State& state) {
  run_on_copy(state, [](CQnBitmap& image) { image.FlipVertical(); });
}

void BM_FlipHorizontal(benchmark::State& state) {
  run_on_copy(state, [](CQnBitmap& image) { image.FlipHorizontal(); });
}

void BM_CropOneBorderPixel(benchmark::State& state) {
  run_on_copy(state, [](CQnBitmap& image) { image.Crop(1, 1, kWidth - 2, kHeight - 2); });
}

BENCHMARK(BM_Memcpy)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CpCommand)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Load24Bit)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Save24Bit)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ConvertTo24Bit)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ConvertTo32BitFrom24)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_FlipVertical)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_FlipHorizontal)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CropOneBorderPixel)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
