// TriangulateRegion over arbitrary plans. Byte 0 gives the ring count,
// whether coordinates are raw doubles and whether the mesh is refined
// (then byte 1 gives the angle bound); then come the ring sizes, then the
// points: by default each coordinate is one byte on a 16 x 16 grid, where
// duplicates, collinear runs, touching and crossing rings abound. Nothing
// may crash or hang; every triangle returned must name valid points and,
// unrefined and on the grid (where double arithmetic is exact), turn
// counter-clockwise.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "qnutil/triangulate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const unsigned ring_count = data[0] & 0x0F;
  const bool raw = (data[0] & 0x80) != 0;
  const bool refined = (data[0] & 0x40) != 0;
  std::size_t at = 1;
  double min_angle = 0;
  if (refined && at < size) min_angle = data[at++] % 35;
  std::vector<unsigned int> rings;
  unsigned int ring_points = 0;
  for (unsigned r = 0; r < ring_count && at < size; ++r, ++at) {
    rings.push_back(data[at] & 0x3F);
    ring_points += rings.back();
  }
  std::vector<double> xy;
  const std::size_t width = raw ? 8 : 1;
  while (at + width <= size && xy.size() < 2 * 4096) {
    double value;
    if (raw) {
      std::memcpy(&value, data + at, 8);
    } else {
      value = data[at] & 0x0F;
    }
    xy.push_back(value);
    at += width;
  }
  if (xy.size() % 2 != 0) xy.pop_back();
  const auto point_count = static_cast<unsigned int>(xy.size() / 2);

  unsigned int* triangles = nullptr;
  double* added = nullptr;
  unsigned int count = 0, added_count = 0, crossing = 0;
  const int code =
      refined ? TriangulateRegionRefined(xy.data(), point_count, rings.data(),
                                         static_cast<unsigned int>(rings.size()), min_angle, 500,
                                         &triangles, &count, &added, &added_count, &crossing)
              : TriangulateRegion(xy.data(), point_count, rings.data(),
                                  static_cast<unsigned int>(rings.size()), &triangles, &count,
                                  &crossing);
  if (code == QNUTIL_REGION_CROSSING && crossing >= ring_points) __builtin_trap();
  if (added_count > 500) __builtin_trap();
  const unsigned int vertex_count = point_count + added_count;
  for (std::size_t t = 0; t < count; ++t) {
    const unsigned int* c = triangles + 3 * t;
    if (c[0] >= vertex_count || c[1] >= vertex_count || c[2] >= vertex_count) __builtin_trap();
    if (raw || refined) continue;
    const double ax = xy[2 * c[0]], ay = xy[2 * c[0] + 1];
    const double turn = (xy[2 * c[1]] - ax) * (xy[2 * c[2] + 1] - ay) -
                        (xy[2 * c[1] + 1] - ay) * (xy[2 * c[2]] - ax);
    if (!(turn > 0)) __builtin_trap();
  }
  // Touch every added coordinate so that a short array shows up under ASan.
  volatile double sink = 0;
  for (std::size_t i = 0; i < 2u * added_count; ++i) sink = sink + added[i];
  FreeRegionTriangles(&triangles);
  FreeRegionPoints(&added);
  return 0;
}
