// DrawBitmap and CopyRect on small pictures with known results: scaling
// and clipping, opacity, the three interpolation modes.
#include <gtest/gtest.h>

#include <vector>

#include "engine_support.h"

using namespace raster_test;

namespace {

using Words = std::vector<uint32_t>;

// Picture rows (top first) of an image, as words.
Words picture_rows(const CQnBitmap& image) {
  Words words;
  for (int y = 0; y < image.Height(); ++y)
    for (int x = 0; x < image.Width(); ++x) words.push_back(picture_pixel(image, x, y));
  return words;
}

// Spans are inclusive. The nearest-pixel mode doubles a 2 x 2 source into
// 4 x 4; clipped at the image's edge, the source is squeezed into what is
// left rather than cut.
TEST(DrawBitmap, NearestModeScalesIntoTheClippedRectangle) {
  CQnBitmap dst, src;
  set_words(src, 2, 2, {3, 4, 1, 2});  // picture rows 1 2 / 3 4
  set_words(dst, 6, 5, Words(30, 9));
  dst.SetInterpolationMode(0);
  dst.DrawBitmap(0, 1, 3, 3, &src, 0, 0, 1, 1, 100);
  dst.DrawBitmap(4, 0, 3, 0, &src, 0, 0, 1, 0, 100);     // two columns left: no scaling
  EXPECT_EQ(picture_rows(dst), (Words{9, 9, 9, 9, 1, 2,  //
                                      1, 1, 2, 2, 9, 9,  //
                                      1, 1, 2, 2, 9, 9,  //
                                      3, 3, 4, 4, 9, 9,  //
                                      3, 3, 4, 4, 9, 9}));
}

// A negative source offset moves the drawing right by as much; a negative
// destination offset moves the source's start instead.
TEST(DrawBitmap, NegativeOffsetsShiftTheOtherSide) {
  CQnBitmap dst, src;
  set_words(src, 2, 1, {5, 6});
  set_words(dst, 4, 1, Words(4, 9));
  dst.SetInterpolationMode(0);
  dst.DrawBitmap(2, 0, 1, 0, &src, -1, 0, 1, 0, 100);
  dst.DrawBitmap(-1, 0, 1, 0, &src, 0, 0, 1, 0, 100);
  EXPECT_EQ(words_of(dst), (Words{6, 9, 9, 5}));
}

// Opacity in percent (clamped to 0..100) blends channel by channel.
TEST(DrawBitmap, OpacityBlendsWithTheDestination) {
  for (const int mode : {0, 1}) {
    for (const auto& [opacity, expected] :
         {std::pair{50, 0x969696u}, {150, 0xC8C8C8u}, {-5, 0x646464u}}) {
      CQnBitmap dst, src;
      set_words(src, 3, 3, Words(9, 0xC8C8C8));
      set_words(dst, 4, 4, Words(16, 0x646464));
      dst.SetInterpolationMode(mode);
      dst.DrawBitmap(0, 0, 3, 3, &src, 0, 0, 2, 2, opacity);
      EXPECT_EQ(words_of(dst), Words(16, expected)) << mode << " " << opacity;
    }
  }
}

// The bilinear mode weighs in the next column: halfway between black and
// white is grey.
TEST(DrawBitmap, BilinearModeBlendsNeighbours) {
  CQnBitmap dst, src;
  set_words(src, 4, 1, {0, 0xFFFFFF, 0, 0xFFFFFF});
  dst.Create(8, 1);
  dst.SetInterpolationMode(1);
  dst.DrawBitmap(0, 0, 7, 0, &src, 0, 0, 3, 0, 100);
  EXPECT_EQ(picture_pixel(dst, 0, 0), 0u);
  EXPECT_EQ(picture_pixel(dst, 1, 0), 0x7F7F7Fu);
  EXPECT_EQ(picture_pixel(dst, 2, 0), 0xFFFFFFu);
  // Stretched from the last source row, which has no row below to weigh in.
  set_words(src, 1, 3, {0x303030, 0x202020, 0x101010});
  dst.Create(1, 2);
  dst.DrawBitmap(0, 0, 0, 1, &src, 0, 2, 0, 0, 100);
  EXPECT_EQ(words_of(dst), (Words{0x303030, 0x303030}));
}

TEST(DrawBitmap, SmoothModeAveragesReductionsAndKeepsFlatColours) {
  CQnBitmap dst, src;
  dst.SetInterpolationMode(2);
  dst.Create(2, 1);
  set_words(src, 8, 1,
            {0, 0xFFFFFF, 0, 0xFFFFFF, 0, 0xFFFFFF, 0, 0xFFFFFF});  // black and white columns
  dst.DrawBitmap(0, 0, 1, 0, &src, 0, 0, 7, 0, 100);
  EXPECT_EQ(words_of(dst), (std::vector<uint32_t>{0x808080, 0x808080}));
  // Enlarging a flat colour gives the same colour everywhere.
  CQnBitmap big;
  big.SetInterpolationMode(2);
  big.Create(25, 17);
  set_words(src, 3, 2, std::vector<uint32_t>(6, 0x336699));
  big.DrawBitmap(0, 0, 24, 16, &src, 0, 0, 2, 1, 100);
  EXPECT_EQ(words_of(big), std::vector<uint32_t>(25 * 17, 0x336699));
}

TEST(CopyRect, CopiesInclusiveSpansWordForWord) {
  CQnBitmap dst, src;
  dst.Create(6, 5);
  dst.Fill(0);
  std::vector<uint32_t> words;
  for (int i = 0; i < 16; ++i) words.push_back(0xAA000000u | static_cast<uint32_t>(i));
  set_words(src, 4, 4, words);
  dst.CopyRect(1, 2, 1, 1, &src, 2, 1);  // span 1: two columns and two rows
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 6; ++x) {
      const bool inside = x >= 1 && x <= 2 && y >= 2 && y <= 3;
      EXPECT_EQ(picture_pixel(dst, x, y), inside ? picture_pixel(src, x - 1 + 2, y - 2 + 1) : 0u)
          << x << "," << y;
    }
  const auto before = words_of(dst);
  dst.CopyRect(0, 0, 0, 3, &src, 0, 0);  // span 0: nothing
  dst.CopyRect(0, 0, 3, 3, &src, 3, 0);  // source span clamped to 0
  EXPECT_EQ(words_of(dst), before);
}

}  // namespace
