// The INI engine: parsing a large file, answering repeated reads from the
// parsed cache, and atomic writes.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "ini/ini_text.h"
#include "ini/profile_engine.h"

namespace {

// About `bytes` of settings: sections of 20 keys with mixed values, a
// comment now and then, CRLF line ends.
std::string settings_text(std::size_t bytes) {
  std::string text;
  text.reserve(bytes + 256);
  for (int section = 0; text.size() < bytes; ++section) {
    text += "[Section" + std::to_string(section) + "]\r\n";
    if (section % 7 == 0) text += "; generated block\r\n";
    for (int key = 0; key < 20; ++key) {
      text += "Key" + std::to_string(key) + " = ";
      switch (key % 4) {
        case 0: text += std::to_string(section * 31 + key); break;
        case 1: text += "1.25,2.5,-3.75,4,5.125"; break;
        case 2: text += "\"quoted value with spaces\""; break;
        default: text += "C:\\Program Files\\Quarn\\Data\\textures\\brick.bmp"; break;
      }
      text += "\r\n";
    }
  }
  return text;
}

const std::string& ten_megabytes() {
  static const std::string text = settings_text(10u << 20);
  return text;
}

std::string temporary_file(const std::string& name, const std::string& bytes) {
  const auto path = std::filesystem::temp_directory_path() / name;
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path.string();
}

void BM_ParseTenMegabytes(benchmark::State& state) {
  const std::string& text = ten_megabytes();
  for (auto _ : state) {
    qnutil::ini::IniText parsed{std::string(text)};
    benchmark::DoNotOptimize(parsed.entries().data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseTenMegabytes)->Unit(benchmark::kMillisecond);

// Repeated reads of one large file: after the first call each read is a
// stamp check and a lookup.
void BM_CachedReadOfTenMegabyteFile(benchmark::State& state) {
  const std::string path = temporary_file("qnutil-bench-big.ini", ten_megabytes());
  char buffer[256];
  int section = 0;
  for (auto _ : state) {
    const std::string name = "Section" + std::to_string(section);
    section = (section + 7919) % 20000;
    benchmark::DoNotOptimize(qnutil::ini::profile_get_string(name.c_str(), "Key13", "", buffer,
                                                             sizeof buffer, path.c_str()));
  }
  state.SetItemsProcessed(state.iterations());
  std::remove(path.c_str());
}
BENCHMARK(BM_CachedReadOfTenMegabyteFile);

// One value changed per call in a 100 KB file, replaced atomically.
void BM_AtomicWriteOf100KFile(benchmark::State& state) {
  const std::string path = temporary_file("qnutil-bench-write.ini", settings_text(100u << 10));
  int value = 0;
  for (auto _ : state) {
    const std::string text = std::to_string(value++);
    benchmark::DoNotOptimize(
        qnutil::ini::profile_write_string("Section3", "Key0", text.c_str(), path.c_str()));
  }
  state.SetItemsProcessed(state.iterations());
  std::remove(path.c_str());
}
BENCHMARK(BM_AtomicWriteOf100KFile)->Unit(benchmark::kMicrosecond);

}  // namespace
