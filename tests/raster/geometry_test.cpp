// Create and Fill, depth conversions, the sized memory loader and the
// memory saver.
#include <gtest/gtest.h>

#include <tuple>

#include "bmp_bytes.h"
#include "engine_support.h"

using namespace raster_test;

namespace {

TEST(Create, SetsHeadersAndReturnsFileSize) {
  CQnBitmap image;
  EXPECT_EQ(image.Create(3, 2), 3 * 4 * 2 + 54);
  const QnBmpFileHeader& file = image.FileHeader();
  const QnBmpInfoHeader& info = image.InfoHeader();
  EXPECT_EQ(std::tuple(file.bfType, file.bfOffBits, info.biSize, info.biPlanes, info.biBitCount),
            std::tuple(0x4D42, 54u, 40u, 1, 32));
  EXPECT_EQ(image.Stride(), 12u);
  image.Fill(0x12345678);
  EXPECT_EQ(words_of(image), std::vector<uint32_t>(6, 0x12345678));
  EXPECT_EQ(image.Create(-5, 4), 54);
  EXPECT_EQ(image.Width(), 0);
  EXPECT_TRUE(image.IsEmpty());
  EXPECT_EQ(image.Create(70000, 70000), 54);  // beyond what a bfSize can say
  EXPECT_TRUE(image.IsEmpty());
}

TEST(Convert, To24BitAndBackKeepsTheColoursOfEveryRowLength) {
  uint32_t seed = 1;
  for (int width = 1; width <= 9; ++width)
    for (int height = 1; height <= 3; ++height) {
      auto words = pattern_words(size_t(width) * height, seed++);
      CQnBitmap image;
      set_words(image, width, height, words);
      image.ConvertTo24Bit();
      ASSERT_EQ(image.Stride(), stride_of(width, 24));
      ASSERT_EQ(image.BitCount(), 24);
      ASSERT_EQ(image.FileHeader().bfSize, stride_of(width, 24) * height + 54);
      image.ConvertTo24Bit();  // already 24-bit: nothing happens
      image.Blur();            // effects leave a 24-bit buffer alone
      image.ConvertTo32Bit();
      for (uint32_t& word : words) word &= 0xFFFFFF;  // the fourth byte is dropped
      ASSERT_EQ(words_of(image), words) << width << "x" << height;
      ASSERT_EQ(image.FileHeader().bfSize, uint32_t(width) * 4 * height + 54);
    }
}

const BmpFields kTwoByTwo{
    .width = 2, .height = 2, .pixels = rows_24bit({0x010203, 0x040506, 0x070809, 0x0A0B0C}, 2, 2)};

TEST(SizedLoader, PackedDibAndSeparateHeadersHonourTheLength) {
  const BmpFields& s = kTwoByTwo;
  const std::string dib = info_header(s) + s.pixels;
  CQnBitmap image;
  image.LoadFromBits2(dib.data(), 0, 40 + 8);  // first row only
  EXPECT_EQ(words_of(image), (std::vector<uint32_t>{0x010203, 0x040506, 0, 0}));
  QnBmpFileHeader file{};
  QnBmpInfoHeader info;
  std::memcpy(&info, dib.data(), 40);
  image.LoadFromBits3(file, info, s.pixels.data(), 3);
  EXPECT_EQ(words_of(image), (std::vector<uint32_t>{0x010203, 0, 0, 0}));
}

TEST(SaveToMemory, LeavesRoomForThePaletteCountAsItStands) {
  const std::string file = bmp_file({.bit_count = 8,
                                     .clr_used = 4,
                                     .palette = {1, 2, 3, 0x445566},
                                     .pixels = std::string("\x03\x00\x00\x00", 4)});
  CQnBitmap image;
  image.LoadFromBits(file.data(), file.size());
  ASSERT_EQ(image.PaletteCount(), 4u);
  const size_t size = image.SavedMemorySize();
  ASSERT_EQ(size, 54u + 16 + 4);
  std::string memory(size, '\x77');
  EXPECT_FALSE(image.SaveToMemory(memory.data(), size - 1));
  EXPECT_EQ(memory, std::string(size, '\x77'));
  EXPECT_TRUE(image.SaveToMemory(memory.data(), size));
  EXPECT_EQ(get(memory, 2), 54u + 4);  // bfSize counts no palette
  EXPECT_EQ(get(memory, 10), 54u);     // nor does bfOffBits
  EXPECT_EQ(memory[28], 24);
  EXPECT_EQ(memory.substr(54, 16), std::string(16, '\x77'));  // the gap is not written
  EXPECT_EQ(memory.substr(70), std::string("\x66\x55\x44\x00", 4));
  EXPECT_EQ(image.BitCount(), 32);
}

}  // namespace
