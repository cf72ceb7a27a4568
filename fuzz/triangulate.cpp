// Triangulieren over arbitrary point sets: the first two bytes choose the
// boundary length, the rest are the points' raw float bits (NaN, infinities,
// huge and tiny values included). Nothing may crash, hang or leak.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "qnutil/triangulate.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const unsigned int boundary = data[0] | (data[1] << 8u);
  const std::size_t count = std::min<std::size_t>((size - 2) / 8, 4096);
  std::vector<float> points(2 * count);
  if (count > 0) std::memcpy(points.data(), data + 2, 8 * count);
  void* triangles = nullptr;
  unsigned int triangle_count = 0;
  Triangulieren(static_cast<int>(count), boundary, points.data(), &triangles, &triangle_count);
  // Touch every corner so that a short array shows up under ASan.
  volatile float sink = 0;
  const auto* corners = static_cast<const float*>(triangles);
  for (std::size_t i = 0; i < 6u * triangle_count; ++i) sink = sink + corners[i];
  FreeTriangs(&triangles);
  return 0;
}
