// Previews a plug-in draws through displayPixels, read back from the
// device context it drew into. As the host has always drawn them, rows come
// from the top of the pixel map, RGB maps ignore the rectangle's left edge,
// and grey 255 comes out black.
#include <gtest/gtest.h>

#include "filter_harness.h"

namespace {

using namespace qnutil_test;

void set_rgb(Image& image, int x, int y, int red, int green, int blue) {
  uint8_t* pixel = image.pixel(x, y);
  pixel[0] = uint8_t(blue), pixel[1] = uint8_t(green), pixel[2] = uint8_t(red);
}

TEST(DisplayPixels, DrawsRgbAndGreyMapsAsTheHostAlwaysHas) {
  LoadedFilter filter("display");
  const Image source = pattern_image(8, 6);
  const RunOutcome outcome = run(filter.get(), source);
  ASSERT_EQ(outcome.status, 0) << "-300x: displayPixels answered case x wrongly";

  Image expected = source;
  for (int y = 0; y < 6; ++y)
    for (int x = 0; x < 8; ++x) set_rgb(expected, x, y, 0x11, 0x11, 0x11);
  for (int row = 0; row < 2; ++row)
    for (int column = 0; column < 3; ++column) set_rgb(expected, column, row, 10 * column + row, 100 + column, 200 + row);
  for (int row = 0; row < 2; ++row)
    for (int column = 0; column < 4; ++column) {
      const int grey = 200 + 10 * row + 2 + column;
      set_rgb(expected, 2 + column, 3 + row, grey, grey, grey);
    }
  set_rgb(expected, 5, 4, 0, 0, 0);  // grey 255: the palette's last entry is left black
  EXPECT_EQ(first_difference(outcome.image, expected), "");
}

}  // namespace
