// Create, Copy, Fill, depth conversions, crop and mirrors.
#include <gtest/gtest.h>

#include <algorithm>

#include "bmp_bytes.h"
#include "engine_support.h"

using namespace raster_test;

namespace {

// Image whose pixel at column x of picture row y is y << 8 | x.
void coordinate_image(CQnBitmap& image, int width, int height) {
  image.Create(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const uint32_t word = static_cast<uint32_t>(y) << 8 | static_cast<uint32_t>(x);
      std::memcpy(image.Pixels() + size_t(height - 1 - y) * image.Stride() + size_t(x) * 4, &word, 4);
    }
}

TEST(Create, SetsHeadersAndReturnsFileSize) {
  CQnBitmap image;
  EXPECT_EQ(image.Create(3, 2), 3 * 4 * 2 + 54);
  EXPECT_EQ(image.FileHeader().bfType, 0x4D42);
  EXPECT_EQ(image.FileHeader().bfOffBits, 54u);
  EXPECT_EQ(image.InfoHeader().biBitCount, 32);
  EXPECT_EQ(image.InfoHeader().biPlanes, 1);
  EXPECT_EQ(image.InfoHeader().biSize, 40u);
  EXPECT_EQ(image.Stride(), 12u);
  EXPECT_FALSE(image.IsEmpty());
  EXPECT_EQ(image.Create(-5, 4), 54);
  EXPECT_EQ(image.Width(), 0);
  EXPECT_TRUE(image.IsEmpty());
  EXPECT_EQ(image.Create(70000, 70000), 54);  // beyond what a bfSize can say
  EXPECT_TRUE(image.IsEmpty());
}

TEST(Copy, IsDeepAndTakesInterpolationModeButNotColourSpace) {
  CQnBitmap source, copy;
  coordinate_image(source, 3, 2);
  source.SetInterpolationMode(2);
  source.ToHSI();
  copy.Copy(&source);
  EXPECT_EQ(words_of(copy), words_of(source));
  EXPECT_NE(copy.Pixels(), source.Pixels());
  EXPECT_EQ(copy.InterpolationMode(), 2);
  EXPECT_EQ(copy.ColourSpace(), 0);
  CQnBitmap empty;
  copy.Copy(&empty);  // an empty or null source changes nothing
  copy.Copy(nullptr);
  EXPECT_EQ(words_of(copy), words_of(source));
}

TEST(Fill, SetsEveryWord) {
  CQnBitmap image;
  image.Create(5, 3);
  image.Fill(0x12345678);
  EXPECT_EQ(words_of(image), std::vector<uint32_t>(15, 0x12345678));
}

TEST(Convert, To24BitAndBackDropsTheFourthByte) {
  CQnBitmap image;
  set_words(image, 3, 2, {0xAA010203, 0xBB040506, 0xCC070809, 0x0A0B0C, 0x0D0E0F, 0x101112});
  image.ConvertTo24Bit();
  EXPECT_EQ(image.BitCount(), 24);
  EXPECT_EQ(image.Stride(), 12u);
  EXPECT_EQ(image.BytesPerPixel(), 3u);
  EXPECT_EQ(image.FileHeader().bfSize, 24u + 54);
  const std::string row0(reinterpret_cast<const char*>(image.Pixels()), 12);
  EXPECT_EQ(row0, std::string("\x03\x02\x01\x06\x05\x04\x09\x08\x07\0\0\0", 12));
  image.ConvertTo24Bit();  // already 24-bit: nothing happens
  EXPECT_EQ(image.Stride(), 12u);
  image.Blur();  // effects leave a 24-bit buffer alone
  image.ConvertTo32Bit();
  EXPECT_EQ(words_of(image), (std::vector<uint32_t>{0x010203, 0x040506, 0x070809, 0x0A0B0C, 0x0D0E0F, 0x101112}));
  EXPECT_EQ(image.FileHeader().bfSize, 24u + 54);
}

TEST(Convert, RoundTripOfEveryRowLengthKeepsTheColours) {
  uint32_t seed = 1;
  for (int width = 1; width <= 9; ++width)
    for (int height = 1; height <= 3; ++height) {
      const auto words = pattern_words(size_t(width) * height, seed++);
      CQnBitmap image;
      set_words(image, width, height, words);
      image.ConvertTo24Bit();
      ASSERT_EQ(image.Stride(), stride_of(width, 24));
      for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
          const uint8_t* p = image.Pixels() + y * image.Stride() + x * 3;
          ASSERT_EQ(uint32_t(p[0] | p[1] << 8 | p[2] << 16), words[size_t(y) * width + x] & 0xFFFFFF);
        }
      image.ConvertTo32Bit();
      std::vector<uint32_t> colours;
      for (uint32_t w : words) colours.push_back(w & 0xFFFFFF);
      ASSERT_EQ(words_of(image), colours) << width << "x" << height;
    }
}

struct CropCase {
  int width, height, x, y, w, h;
  int expect_x, expect_y, expect_w, expect_h;  // kept rectangle in picture coordinates
};

class CropTest : public testing::TestWithParam<CropCase> {};

TEST_P(CropTest, KeepsTheClampedRectangle) {
  const CropCase& c = GetParam();
  CQnBitmap image;
  coordinate_image(image, c.width, c.height);
  const uint32_t size_before = image.FileHeader().bfSize;
  image.Crop(c.x, c.y, c.w, c.h);
  ASSERT_EQ(image.Width(), c.expect_w);
  ASSERT_EQ(image.Height(), c.expect_h);
  EXPECT_EQ(image.BufferSize(), uint32_t(c.expect_w) * 4 * c.expect_h);
  EXPECT_EQ(image.FileHeader().bfSize, size_before);  // recomputed only by the next conversion
  for (int y = 0; y < c.expect_h; ++y)
    for (int x = 0; x < c.expect_w; ++x)
      ASSERT_EQ(picture_pixel(image, x, y), uint32_t(c.expect_y + y) << 8 | uint32_t(c.expect_x + x)) << x << "," << y;
}

INSTANTIATE_TEST_SUITE_P(Rectangles, CropTest,
                         testing::Values(CropCase{100, 100, -10, -10, 20, 20, 0, 0, 20, 20},
                                         CropCase{100, 100, 100, 0, 10, 10, 0, 0, 100, 100},  // width 0: unchanged
                                         CropCase{100, 50, 0, 0, 1000, 1000, 0, 0, 100, 50},
                                         CropCase{10, 8, 3, 2, 4, 5, 3, 2, 4, 5},
                                         CropCase{10, 8, 9, 7, 5, 5, 9, 7, 1, 1},
                                         CropCase{10, 8, 2, 8, 3, 3, 0, 0, 10, 8},  // height 0: unchanged
                                         CropCase{7, 3, 1, 0, 5, -2, 0, 0, 7, 3}));

TEST(Flip, HorizontalMirrorsEveryRow) {
  for (int width : {1, 2, 3, 7, 8, 9, 17}) {
    CQnBitmap image;
    coordinate_image(image, width, 3);
    image.FlipHorizontal();
    for (int y = 0; y < 3; ++y)
      for (int x = 0; x < width; ++x)
        ASSERT_EQ(picture_pixel(image, x, y), uint32_t(y) << 8 | uint32_t(width - 1 - x)) << width;
  }
}

TEST(Flip, VerticalSwapsRows) {
  for (int height : {1, 2, 5}) {
    CQnBitmap image;
    coordinate_image(image, 3, height);
    image.FlipVertical();
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < 3; ++x) ASSERT_EQ(picture_pixel(image, x, y), uint32_t(height - 1 - y) << 8 | uint32_t(x));
  }
}

TEST(Geometry, EmptyImageIsLeftAlone) {
  CQnBitmap image;
  image.Crop(0, 0, 5, 5);
  image.FlipHorizontal();
  image.FlipVertical();
  image.ConvertTo24Bit();
  image.ConvertTo32Bit();
  image.Fill(1);
  EXPECT_TRUE(image.IsEmpty());
}

}  // namespace
