// The sized memory loaders and the memory saver of the engine class.
#include <gtest/gtest.h>

#include "bmp_bytes.h"
#include "engine_support.h"

using namespace raster_test;

namespace {

BmpFields two_by_two() {
  BmpFields s;
  s.width = 2, s.height = 2, s.bit_count = 24;
  s.pixels = rows_24bit({0x010203, 0x040506, 0x070809, 0x0A0B0C}, 2, 2);
  return s;
}

TEST(SizedLoader, BytesBeyondTheLengthReadAsZero) {
  const std::string file = bmp_file(two_by_two());
  for (size_t length : {size_t(0), size_t(10), size_t(54), size_t(60), size_t(66), file.size()}) {
    CQnBitmap image;
    image.LoadFromBits(file.data(), length);
    if (length < 54) {
      // Headers cut short read as zero: width 0, depth 0, no pixels.
      EXPECT_TRUE(image.IsEmpty()) << length;
      continue;
    }
    std::string whole = file.substr(0, length);
    whole.resize(file.size(), '\0');
    CQnBitmap reference;
    reference.LoadFromBits(whole.data());
    EXPECT_EQ(words_of(image), words_of(reference)) << length;
  }
}

TEST(SizedLoader, PackedDibAndSeparateHeadersHonourTheLength) {
  const BmpFields s = two_by_two();
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

TEST(SizedLoader, SixteenBitMaximumStaysDark) {
  BmpFields s;
  s.width = 1, s.bit_count = 16, s.pixels = std::string("\xFF\x7F\x00\x00", 4);
  const std::string file = bmp_file(s);
  CQnBitmap image;
  image.LoadFromBits(file.data(), file.size());
  EXPECT_EQ(words_of(image), std::vector<uint32_t>{0x001F1F1F});
}

TEST(SaveToMemory, LeavesRoomForThePaletteCountAsItStands) {
  BmpFields eight;
  eight.width = 1, eight.bit_count = 8, eight.clr_used = 4, eight.palette = {1, 2, 3, 0x445566};
  eight.pixels = std::string("\x03\x00\x00\x00", 4);
  const std::string file = bmp_file(eight);
  CQnBitmap image;
  image.LoadFromBits(file.data(), file.size());
  ASSERT_EQ(image.PaletteCount(), 4u);
  const size_t size = image.SavedMemorySize();
  ASSERT_EQ(size, 54u + 16 + 4);
  std::string memory(size, '\x77');
  EXPECT_FALSE(image.SaveToMemory(memory.data(), size - 1));
  EXPECT_EQ(memory, std::string(size, '\x77'));
  EXPECT_TRUE(image.SaveToMemory(memory.data(), size));
  EXPECT_EQ(get32(memory, 2), 54u + 4);   // bfSize counts no palette
  EXPECT_EQ(get32(memory, 10), 54u);      // nor does bfOffBits
  EXPECT_EQ(get16(memory, 28), 24);
  EXPECT_EQ(memory.substr(54, 16), std::string(16, '\x77'));  // the gap is not written
  EXPECT_EQ(memory.substr(70), std::string("\x66\x55\x44\x00", 4));
  EXPECT_EQ(image.BitCount(), 32);
}

TEST(SaveToMemory, RoundTripsThroughTheLoader) {
  const std::string file = bmp_file(two_by_two());
  CQnBitmap image;
  image.LoadFromBits(file.data(), file.size());
  std::string memory(image.SavedMemorySize(), '\0');
  image.SaveToMemory(memory.data());
  EXPECT_EQ(memory, file);
}

}  // namespace
