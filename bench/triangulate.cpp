// Triangulieren on large inputs, inserted in input order: uniformly random
// points inside a 1,000-point circular boundary, and a 1000 x 1000 grid in
// row order, axis-aligned and rotated, inside its square outline.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "qnutil/triangulate.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

std::vector<float> random_in_circle(int boundary, int inner) {
  std::vector<float> points;
  for (int i = 0; i < boundary; ++i) {
    points.push_back(static_cast<float>(1000 * std::cos(2 * kPi * i / boundary)));
    points.push_back(static_cast<float>(1000 * std::sin(2 * kPi * i / boundary)));
  }
  std::mt19937 generator(2024);
  std::uniform_real_distribution<float> coordinate(-700.0f, 700.0f);
  for (int i = 0; i < inner; ++i) {
    points.push_back(coordinate(generator));
    points.push_back(coordinate(generator));
  }
  return points;
}

// The outline's four corners first, then the grid row by row.
std::vector<float> grid(int side, double angle) {
  std::vector<float> points;
  auto put = [&](double x, double y) {
    points.push_back(static_cast<float>(x * std::cos(angle) - y * std::sin(angle)));
    points.push_back(static_cast<float>(x * std::sin(angle) + y * std::cos(angle)));
  };
  put(-1, -1), put(side, -1), put(side, side), put(-1, side);
  for (int row = 0; row < side; ++row)
    for (int column = 0; column < side; ++column) put(column, row);
  return points;
}

// Peak resident memory of the process in bytes (Linux), 0 elsewhere.
double peak_resident_bytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("VmHWM:", 0) == 0) return std::atof(line.c_str() + 6) * 1024;
  return 0;
}

void run(benchmark::State& state, const std::vector<float>& points, unsigned int boundary) {
  const int n = static_cast<int>(points.size() / 2);
  const double before = peak_resident_bytes();
  unsigned int count = 0;
  for (auto _ : state) {
    void* triangles = nullptr;
    Triangulieren(n, boundary, points.data(), &triangles, &count);
    FreeTriangs(&triangles);
  }
  state.counters["points"] = n;
  state.counters["triangles"] = count;
  // Growth of the peak over the input's own footprint; meaningful for the
  // first benchmark that reaches a new peak.
  state.counters["peak_bytes_per_point"] = (peak_resident_bytes() - before) / n;
}

void BM_RandomMillionInCircle(benchmark::State& state) {
  static const std::vector<float> points = random_in_circle(1000, 1000000);
  run(state, points, 1000);
}

void BM_Grid(benchmark::State& state, double angle) {
  static const std::vector<float> axis = grid(1000, 0.0);
  static const std::vector<float> rotated = grid(1000, 0.5235987755982988 / 1.37);
  run(state, angle == 0.0 ? axis : rotated, 4);
}

void BM_RandomInCircle(benchmark::State& state) {
  const std::vector<float> points = random_in_circle(100, static_cast<int>(state.range(0)));
  run(state, points, 100);
}

}  // namespace

BENCHMARK(BM_RandomMillionInCircle)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(BM_Grid, axis_aligned_1000x1000, 0.0)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(BM_Grid, rotated_1000x1000, 1.0)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RandomInCircle)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond);
