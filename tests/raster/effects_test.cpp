// Pixel effects: blur on known pictures of several sizes,
// the colour-space conversions and the set-up operations.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "bmp_bytes.h"
#include "engine_support.h"
#include "raster/hsi.h"

using namespace raster_test;
using Words = std::vector<uint32_t>;
using Effect = std::function<void(CQnBitmap&)>;

namespace {

Words applied(const Effect& effect, int width, int height, const Words& in) {
  CQnBitmap image;
  set_words(image, width, height, in);
  effect(image);
  return words_of(image);
}

TEST(Blur, AveragesTheThreeByThreeNeighbourhoodWithEdgesRepeated) {
  const Effect blur = [](CQnBitmap& b) { b.Blur(); };
  // One bright pixel among eight black: 255 / 9 = 28.3 everywhere.
  EXPECT_EQ(applied(blur, 3, 3, {0, 0, 0, 0, 0xFFFFFF, 0, 0, 0, 0}), Words(9, 0x1C1C1C));
  // Edges repeat: the first pixel counts six times for itself, three for
  // its neighbour.
  EXPECT_EQ(applied(blur, 3, 1, {0xFFFFFF, 0, 0}), (Words{0xAAAAAA, 0x555555, 0}));
  // A flat colour stays flat at every size, the smallest included.
  for (const auto& [width, height] : {std::pair{1, 1}, {2, 1}, {7, 3}, {5, 64}}) {
    const Words flat(size_t(width) * height, 0x336699);
    EXPECT_EQ(applied(blur, width, height, flat), flat) << width << "x" << height;
  }
}

// Expected values from an independent rendering of the conversion formulas.
TEST(Hsi, KnownColoursBothWays) {
  const std::pair<uint32_t, uint32_t> forward[] = {
      {0xFF0000, 0xFEFF55}, {0x00FF00, 0x54FF55}, {0x0000FF, 0xAAFF55}, {0xFFFFFF, 0x0000FF},
      {0x000000, 0x005200}, {0x808080, 0x000080}, {0x0AC81E, 0x58E750}, {0xFFFF00, 0x2ABEAA}};
  for (const auto& [rgb, hsi] : forward)
    EXPECT_EQ(qnutil::raster::rgb_to_hsi(rgb), hsi) << std::hex << rgb;
  const std::pair<uint32_t, uint32_t> inverse[] = {
      {0x000080, 0x7F7F7F},  // grey
      {0x005200, 0x000000},  // black as the forward conversion gives it
      {0x58E750, 0x0CC71B},  // in range, no clamping
      {0xAAFF55, 0x0000FE},  // red below 0
      {0xFEFF55, 0xB200A3},  // green below 0: the factor mirrors red and blue through grey
      {0x54FF55, 0x06F800},  // blue below 0
      {0x00FFFF, 0xFFFEFE},  // blue below 0, then red above 255
      {0x80C8FA, 0xF0FEFF},  // red below 0, then green and blue above 255
  };
  for (const auto& [hsi, rgb] : inverse)
    EXPECT_EQ(qnutil::raster::hsi_to_rgb(hsi), rgb) << std::hex << hsi;
}

// The colour ramp follows hue n / 3 at full saturation and intensity 2n;
// each set-up makes its maps and a working copy (leaks and double frees are
// checked under the sanitizers).
TEST(EffectState, SetUpOperationsMakeTheirState) {
  CQnBitmap image;
  set_words(image, 3, 2, pattern_words(6, 1));
  EXPECT_EQ(std::pair(image.AnimationParameters()[0], image.AnimationParameters()[1]),
            std::pair(5, 3));
  image.InitColourRamp();
  image.InitDoubleMap();
  image.InitNoiseTable();
  image.InitNoiseTable();
  ASSERT_TRUE(image.RampByteMap() && image.DoubleMapFront() && image.DoubleMapBack() &&
              image.NoiseTable());
  EXPECT_EQ(words_of(*image.RampSource()), words_of(image));
  const std::pair<int, uint32_t> ramp[] = {{0, 0x000000},   {1, 0x050000},   {50, 0xD85300},
                                           {100, 0xFFDE7A}, {128, 0xFFFFFE}, {255, 0xFEFFFE}};
  for (const auto& [n, rgb] : ramp) {
    const uint8_t* entry = image.ColourRamp() + 4 * n;
    EXPECT_EQ(uint32_t(entry[0] | entry[1] << 8 | entry[2] << 16 | entry[3] << 24), rgb) << n;
  }
  const float* noise = image.NoiseTable();
  EXPECT_TRUE(std::all_of(noise, noise + CQnBitmap::kNoiseTableValues,
                          [](float v) { return v >= 0 && v < 1; }));
}

}  // namespace
