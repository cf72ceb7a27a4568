// TriangulateRegion on large floor plans, measured in the same run beside
// CGAL's constrained Delaunay triangulation (exact predicates, the points
// and ring edges inserted in one bulk call, the inside found by the same
// even-odd walk over the faces): outlines of a million vertices (jittered
// and smooth), and a plan with 10,000 openings. Heap use is counted by replacing the global
// allocation functions, so both sides are measured alike (peak bytes above
// the input, per vertex).
#include <benchmark/benchmark.h>

#include <CGAL/Constrained_Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_face_base_with_info_2.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/triangulate.h"

namespace {

std::atomic<std::size_t> heap_in_use{0};
std::atomic<std::size_t> heap_peak{0};

// Every block carries its size in front, for the count.
constexpr std::size_t kHeader = 16;

void* counted_allocation(std::size_t size) {
  void* block = std::malloc(size + kHeader);
  if (block == nullptr) throw std::bad_alloc();
  *static_cast<std::size_t*>(block) = size;
  const std::size_t now = heap_in_use += size;
  std::size_t peak = heap_peak.load();
  while (now > peak && !heap_peak.compare_exchange_weak(peak, now)) {
  }
  return static_cast<char*>(block) + kHeader;
}

void counted_release(void* pointer) {
  if (pointer == nullptr) return;
  void* block = static_cast<char*>(pointer) - kHeader;
  heap_in_use -= *static_cast<std::size_t*>(block);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return counted_allocation(size); }
void* operator new[](std::size_t size) { return counted_allocation(size); }
void operator delete(void* pointer) noexcept { counted_release(pointer); }
void operator delete[](void* pointer) noexcept { counted_release(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { counted_release(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { counted_release(pointer); }

namespace {

constexpr double kPi = 3.14159265358979323846;

struct Plan {
  std::vector<double> xy;
  std::vector<unsigned int> rings;
};

void add_ring(Plan& plan, const std::vector<std::pair<double, double>>& ring) {
  for (const auto& [x, y] : ring) plan.xy.push_back(x), plan.xy.push_back(y);
  plan.rings.push_back(static_cast<unsigned int>(ring.size()));
}

// A star-shaped outline whose radius waves and (with a jitter of a few
// vertex spacings) jitters from vertex to vertex, so that many of its
// edges are not Delaunay edges of its vertices and have to be forced in.
// Without jitter it is a smooth curve sampled in order, the case that
// punishes a purely spatial insertion order.
Plan wavy_outline(int vertices, double jitter_spacings) {
  std::mt19937 generator(7);
  const double spacing = 2 * kPi * 1000 / vertices;
  std::uniform_real_distribution<double> jitter(-jitter_spacings * spacing,
                                                jitter_spacings * spacing);
  std::vector<std::pair<double, double>> ring;
  for (int i = 0; i < vertices; ++i) {
    const double angle = 2 * kPi * i / vertices;
    const double radius = 1000 * (1 + 0.2 * std::sin(5 * angle)) + jitter(generator);
    ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
  }
  Plan plan;
  add_ring(plan, ring);
  return plan;
}

// A square floor of 1,000 x 1,000 (1,000 points per side) with a
// 100 x 100 grid of octagonal openings of random size.
Plan floor_with_openings() {
  std::vector<std::pair<double, double>> outline;
  for (int i = 0; i < 1000; ++i) outline.push_back({i, 0});
  for (int i = 0; i < 1000; ++i) outline.push_back({1000, i});
  for (int i = 0; i < 1000; ++i) outline.push_back({1000 - i, 1000});
  for (int i = 0; i < 1000; ++i) outline.push_back({0, 1000 - i});
  Plan plan;
  add_ring(plan, outline);
  std::mt19937 generator(11);
  std::uniform_real_distribution<double> radius(1.0, 4.0);
  for (int row = 0; row < 100; ++row)
    for (int column = 0; column < 100; ++column) {
      std::vector<std::pair<double, double>> opening;
      const double r = radius(generator);
      for (int k = 0; k < 8; ++k)
        opening.push_back({10 * column + 5 + r * std::cos(kPi * k / 4),
                           10 * row + 5 + r * std::sin(kPi * k / 4)});
      add_ring(plan, opening);
    }
  return plan;
}

const Plan& million_outline() {
  static const Plan plan = wavy_outline(1000000, 2);
  return plan;
}
const Plan& million_smooth_outline() {
  static const Plan plan = wavy_outline(1000000, 0);
  return plan;
}
const Plan& ten_thousand_openings() {
  static const Plan plan = floor_with_openings();
  return plan;
}

void report(benchmark::State& state, const Plan& plan, std::size_t triangles, std::size_t peak) {
  const double vertices = static_cast<double>(plan.xy.size() / 2);
  state.counters["vertices"] = vertices;
  state.counters["triangles"] = static_cast<double>(triangles);
  state.counters["peak_heap_bytes_per_vertex"] = static_cast<double>(peak) / vertices;
  state.counters["vertices_per_second"] =
      benchmark::Counter(vertices, benchmark::Counter::kIsIterationInvariantRate);
}

void BM_QnUtil(benchmark::State& state, const Plan& (*input)()) {
  const Plan& plan = input();
  std::size_t triangles = 0, peak = 0;
  for (auto _ : state) {
    const std::size_t before = heap_in_use;
    heap_peak = before;
    unsigned int* array = nullptr;
    unsigned int count = 0;
    if (TriangulateRegion(plan.xy.data(), static_cast<unsigned int>(plan.xy.size() / 2),
                          plan.rings.data(), static_cast<unsigned int>(plan.rings.size()), &array,
                          &count, nullptr) != QNUTIL_REGION_OK)
      state.SkipWithError("TriangulateRegion failed");
    peak = heap_peak - before;
    triangles = count;
    FreeRegionTriangles(&array);
  }
  report(state, plan, triangles, peak);
}

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using FaceBase = CGAL::Constrained_triangulation_face_base_2<
    Kernel, CGAL::Triangulation_face_base_with_info_2<int, Kernel>>;
using DataStructure =
    CGAL::Triangulation_data_structure_2<CGAL::Triangulation_vertex_base_2<Kernel>, FaceBase>;
using Cdt = CGAL::Constrained_Delaunay_triangulation_2<Kernel, DataStructure,
                                                       CGAL::No_constraint_intersection_tag>;

void BM_Cgal(benchmark::State& state, const Plan& (*input)()) {
  const Plan& plan = input();
  std::vector<Kernel::Point_2> points;
  for (std::size_t i = 0; i < plan.xy.size(); i += 2)
    points.emplace_back(plan.xy[i], plan.xy[i + 1]);
  std::vector<std::pair<std::size_t, std::size_t>> edges;
  std::size_t start = 0;
  for (const unsigned int size : plan.rings) {
    for (unsigned int k = 0; k < size; ++k) edges.emplace_back(start + k, start + (k + 1) % size);
    start += size;
  }
  std::size_t triangles = 0, peak = 0;
  for (auto _ : state) {
    const std::size_t before = heap_in_use;
    heap_peak = before;
    {
      Cdt cdt;
      cdt.insert_constraints(points.begin(), points.end(), edges.begin(), edges.end());
      for (const auto face : cdt.all_face_handles()) face->info() = -1;
      std::vector<Cdt::Face_handle> pending{cdt.infinite_face()};
      pending.back()->info() = 0;
      triangles = 0;
      while (!pending.empty()) {
        const Cdt::Face_handle face = pending.back();
        pending.pop_back();
        for (int i = 0; i < 3; ++i) {
          const Cdt::Face_handle next = face->neighbor(i);
          if (next->info() != -1) continue;
          next->info() = face->info() ^ (cdt.is_constrained({face, i}) ? 1 : 0);
          triangles += next->info() == 1;
          pending.push_back(next);
        }
      }
      peak = heap_peak - before;
    }
  }
  report(state, plan, triangles, peak);
}

// Each plan measured by both, one after the other.
const bool registered = [] {
  const struct {
    const char* name;
    const Plan& (*input)();
    int iterations;
  } plans[] = {{"outline_1M", million_outline, 3},
               {"smooth_outline_1M", million_smooth_outline, 3},
               {"openings_10k", ten_thousand_openings, 5}};
  for (const auto& plan : plans) {
    using Run = void (*)(benchmark::State&, const Plan& (*)());
    const std::pair<const char*, Run> sides[] = {{"QnUtil/", BM_QnUtil}, {"Cgal/", BM_Cgal}};
    for (const auto& [side, run] : sides)
      benchmark::RegisterBenchmark((side + std::string(plan.name)).c_str(), run, plan.input)
          ->Unit(benchmark::kMillisecond)
          ->Iterations(plan.iterations);
  }
  return true;
}();

}  // namespace
