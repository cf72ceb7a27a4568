// Lookups by name among very many siblings, appends, and iteration by
// position in the environment store.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "qnutil/env.h"

namespace {

constexpr int kSiblings = 1000000;

// One block with kSiblings children: names repeat `repeat` times, so
// occurrence numbers 1..repeat address them.
EnvHandle* make_wide(int repeat) {
  EnvHandle* env = env_open(1, nullptr);
  const int names = kSiblings / repeat;
  for (int r = 1; r <= repeat; ++r) {
    for (int i = 0; i < names; ++i) {
      const std::string path = "k" + std::to_string(i) + "@" + std::to_string(r);
      env_put(env, "S", path.c_str(), "value");
    }
  }
  return env;
}

void get_by_name(benchmark::State& state) {
  const int repeat = static_cast<int>(state.range(0));
  EnvHandle* env = make_wide(repeat);
  const int names = kSiblings / repeat;
  std::mt19937 random(7);
  std::vector<std::string> paths;
  for (int i = 0; i < 4096; ++i)
    paths.push_back("k" + std::to_string(random() % names) + "@" +
                    std::to_string(1 + random() % repeat));
  char buf[16];
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(env_get(env, "S", paths[i++ & 4095].c_str(), 1, sizeof buf, buf));
  }
  state.SetLabel(std::to_string(kSiblings) + " siblings, names x" + std::to_string(repeat));
  env_close(env, 0);
}
BENCHMARK(get_by_name)->Arg(1)->Arg(10)->Unit(benchmark::kNanosecond);

void append_put(benchmark::State& state) {
  EnvHandle* env = env_open(1, nullptr);
  long i = 0;
  for (auto _ : state) {
    const std::string path = "n" + std::to_string(i++);
    benchmark::DoNotOptimize(env_put(env, "S", path.c_str(), "v"));
  }
  state.SetLabel(std::to_string(i) + " appended");
  env_close(env, 0);
}
BENCHMARK(append_put)->Iterations(kSiblings);

void append_occurrence(benchmark::State& state) {
  EnvHandle* env = env_open(1, nullptr);
  long i = 0;
  for (auto _ : state) {
    const std::string path = "same@" + std::to_string(++i);
    benchmark::DoNotOptimize(env_put(env, "S", path.c_str(), "v"));
  }
  env_close(env, 0);
}
BENCHMARK(append_occurrence)->Iterations(kSiblings);

void iterate_by_position(benchmark::State& state) {
  EnvHandle* env = make_wide(1);
  char name[32];
  for (auto _ : state) {
    long id = 0;
    int n = 0;
    for (int kind =
             env_get_first(env, "S", nullptr, 1, &id, sizeof name, name, 0, nullptr, nullptr);
         kind == ENV_DATA; kind = env_get_next(sizeof name, name, 0, nullptr, nullptr))
      ++n;
    benchmark::DoNotOptimize(n);
  }
  state.SetItemsProcessed(state.iterations() * kSiblings);
  env_close(env, 0);
}
BENCHMARK(iterate_by_position)->Unit(benchmark::kMillisecond);

}  // namespace
