// Reading and writing a generated 100 MB settings file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "qnutil/env.h"

namespace {

constexpr std::size_t kFileBytes = 100u << 20;

// Sections of entries with numbers, lists, texts and nested blocks, in the
// writer's own layout.
const std::string& settings_file() {
  static const std::string path = [] {
    const auto file = std::filesystem::temp_directory_path() / "qnutil-bench-settings.env";
    std::ofstream out(file, std::ios::binary);
    std::size_t written = 0;
    for (int section = 0; written < kFileBytes; ++section) {
      std::string text = "[Section" + std::to_string(section) + "]\n";
      for (int i = 0; i < 200; ++i) {
        const std::string n = std::to_string(i);
        text += "  width" + n + " =" + std::to_string(section * 0.25 + i) + "\n";
        text += "  points" + n + " =1,2,3,4.5,6.75,8\n";
        text +=
            "  label" + n + " =Wall segment " + n + " on storey " + std::to_string(section) + "\n";
        if (i % 10 == 0)
          text += "  frame" + n + " ={\n    color =red\n    style ={\n      pen =3\n    }\n  }\n";
      }
      out << text;
      written += text.size();
    }
    return file.string();
  }();
  return path;
}

void read_file(benchmark::State& state) {
  const std::string& file = settings_file();
  const auto bytes = std::filesystem::file_size(file);
  for (auto _ : state) {
    EnvHandle* env = env_open(1, nullptr);
    benchmark::DoNotOptimize(env_read_file(file.c_str(), env));
    state.PauseTiming();
    env_close(env, 0);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
}
BENCHMARK(read_file)->Unit(benchmark::kMillisecond)->Iterations(3);

void write_file(benchmark::State& state) {
  const std::string& file = settings_file();
  EnvHandle* env = env_open(1, nullptr);
  env_read_file(file.c_str(), env);
  const std::string out = file + ".out";
  for (auto _ : state) env_write_file(out.c_str(), env);
  state.SetBytesProcessed(
      static_cast<int64_t>(state.iterations() * std::filesystem::file_size(out)));
  env_close(env, 0);
  std::remove(out.c_str());
}
BENCHMARK(write_file)->Unit(benchmark::kMillisecond)->Iterations(3);

// The character-callback path of env_read for comparison with the file's
// buffered path.
void read_callback(benchmark::State& state) {
  std::ifstream in(settings_file(), std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  struct Source {
    const std::string* text;
    std::size_t pos;
  };
  for (auto _ : state) {
    EnvHandle* env = env_open(1, nullptr);
    Source source{&text, 0};
    benchmark::DoNotOptimize(env_read(
        [](void* s) -> int {
          auto* src = static_cast<Source*>(s);
          return src->pos < src->text->size() ? static_cast<unsigned char>((*src->text)[src->pos++])
                                              : -1;
        },
        &source, env));
    state.PauseTiming();
    env_close(env, 0);
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(read_callback)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
