// Previews a plug-in draws through displayPixels, read back from the
// device context it drew into. As the host has always drawn them, rows come
// from the top of the pixel map, RGB maps ignore the rectangle's left edge,
// and grey 255 comes out black.
#include <gtest/gtest.h>

#include <cstring>

#include "filter_harness.h"

namespace {

using namespace qnutil_test;

TEST(DisplayPixels, DrawsRgbAndGreyMapsAsTheHostAlwaysHas) {
  LoadedFilter filter("display");
  const Image source = pattern_image(8, 6);
  const RunOutcome outcome = run(filter.get(), source);
  ASSERT_EQ(outcome.status, 0) << "-300x: displayPixels answered case x wrongly";

  Image expected = source;
  const auto set = [&expected](int x, int y, uint32_t rgb) {
    std::memcpy(expected.pixel(x, y), &rgb, 3);
  };
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 8; ++x) set(x, y, 0x111111);
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column)
      set(column, row,
          uint32_t(10 * column + row) << 16 | uint32_t(100 + column) << 8 | uint32_t(200 + row));
    for (int column = 0; column < 4; ++column)
      set(2 + column, 3 + row, uint32_t(202 + 10 * row + column) * 0x010101u);
  }
  set(5, 4, 0);  // grey 255: the palette's last entry is left black
  EXPECT_EQ(first_difference(outcome.image, expected), "");
}

}  // namespace
