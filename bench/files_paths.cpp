// Path composition and folder listing, the calls hosts make per file when
// they walk project folders.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "qnutil/qnutil.h"

namespace {

void BM_Makepath(benchmark::State& state) {
  char out[QNUTIL_PATH_SIZE];
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        QnUtil_Makepath(out, "/Projects/Quarn/Haus", "Grundrisse/EG", "Wand_Sued.TXT"));
  }
}
BENCHMARK(BM_Makepath);

void BM_ListdirThousandFiles(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / "qnutil-bench-listdir";
  std::filesystem::create_directories(folder);
  for (int i = 0; i < 1000; ++i) std::ofstream(folder / ("file" + std::to_string(i) + ".dat")) << i;
  const std::string dir = folder.string();
  for (auto _ : state) {
    QnUtilDirEntry* entries = nullptr;
    unsigned count = 0;
    QnUtil_Listdir(dir.c_str(), "*.dat", 0, &entries, &count);
    QnUtil_FreeEntries(&entries);
    benchmark::DoNotOptimize(count);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_ListdirThousandFiles)->Unit(benchmark::kMillisecond);

}  // namespace
