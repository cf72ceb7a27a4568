// The bmpEx exports: null handles and empty objects, appending to an
// existing file, and the operations reaching the engine.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bmp_bytes.h"
#include "qnutil/qnutil_win32.h"
#include "support/test_support.h"

using namespace raster_test;
using namespace std::string_literals;
using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;
using Words = std::vector<uint32_t>;

namespace {

bmpExHandle new_image() {
  bmpExHandle handle = nullptr;
  EXPECT_EQ(bmpExInit(&handle), 1);
  EXPECT_NE(handle, nullptr);
  return handle;
}

// What the object holds, seen through a saved file ("" when it saved nothing).
std::string saved_bytes(bmpExHandle handle) {
  ScratchDir dir;
  EXPECT_EQ(bmpExSaveToFile(handle, dir.file("saved.bmp").c_str()), 1);
  return read_file(dir.path() / "saved.bmp");
}

Words saved_pixels(bmpExHandle handle) { return decode_24bit(saved_bytes(handle)); }

// The object after loading the file from disk into `handle`.
bmpExHandle load_file(const std::string& file, bmpExHandle handle = new_image()) {
  ScratchDir dir;
  write_file(dir.path() / "in.bmp", file);
  EXPECT_EQ(bmpExLoad(handle, dir.file("in.bmp").c_str()), 1);
  return handle;
}

// An object holding one pixel, 0x030201.
bmpExHandle one_pixel_image() { return load_file(bmp_file({.pixels = "\x01\x02\x03\x00"s})); }

TEST(BmpEx, NullHandleGivesZeroAndEmptyObjectsSucceed) {
  const char* path = "unused.bmp";
  const std::string bits = bmp_file({});
  QnBmpFileHeader file{};
  QnBmpInfoHeader info{};
  int width = 0;
  for (int result :
       {bmpExLoad(nullptr, path), bmpExLoadFromBits(nullptr, bits.data()),
        bmpExLoadFromBits2(nullptr, bits.data(), 1),
        bmpExLoadFromBits3(nullptr, &file, &info, bits.data()), bmpExSaveToFile(nullptr, path),
        bmpExSaveAtEnd(nullptr, path), bmpExGetSize(nullptr, &width, nullptr),
        bmpExCrop(nullptr, 0, 0, 1, 1), bmpExFlip(nullptr, 1), bmpExThreshold(nullptr, 1),
        bmpExBlur(nullptr), bmpExBrightness(nullptr, 1), bmpExContrast(nullptr, 1),
        bmpExTint(nullptr, 1), bmpExConvertHsi(nullptr, 1),
        bmpExDrawBitmap(nullptr, 0, 0, 1, 1, nullptr, 0, 0, 1, 1, 100, 0)})
    EXPECT_EQ(result, 0);
  bmpExHandle handle = new_image();
  EXPECT_EQ(saved_bytes(handle), "");
  EXPECT_EQ(bmpExLoad(handle, nullptr), 1);
  EXPECT_EQ(bmpExLoadFromBits(handle, nullptr), 1);
  EXPECT_EQ(bmpExLoadFromBits3(handle, nullptr, &info, "data"), 1);
}

TEST(BmpEx, SaveAtEndAppendsOnlyToAnExistingFile) {
  ScratchDir dir;
  bmpExHandle handle = one_pixel_image();
  write_file(dir.path() / "log.bin", "existing content\n");
  EXPECT_EQ(bmpExSaveAtEnd(handle, dir.file("log.bin").c_str()), 1);
  const std::string saved = saved_bytes(handle);
  ASSERT_EQ(saved.size(), 54u + 4);
  EXPECT_EQ(read_file(dir.path() / "log.bin"), "existing content\n" + saved);
  EXPECT_EQ(bmpExSaveAtEnd(handle, dir.file("missing.bin").c_str()), 1);
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "missing.bin"));
  EXPECT_EQ(saved_pixels(handle), Words{0x030201});
}

TEST(BmpExOperations, ReachTheEngine) {
  const std::string file = bmp_file(
      {.width = 3,
       .height = 2,
       .pixels = rows_24bit({0x010101, 0x020202, 0x030303, 0x040404, 0x050505, 0x060606}, 3, 2)});
  bmpExHandle image = new_image();
  bmpExLoadFromBits(image, file.data());
  int width = 0, height = 0;
  EXPECT_EQ(bmpExGetSize(image, &width, &height), 1);
  EXPECT_EQ(width, 3);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(bmpExFlip(image, 1), 1);
  EXPECT_EQ(saved_pixels(image),
            (Words{0x030303, 0x020202, 0x010101, 0x060606, 0x050505, 0x040404}));
  EXPECT_EQ(bmpExCrop(image, 1, 0, 2, 1), 1);  // top row (buffer row 1), columns 1 and 2
  EXPECT_EQ(saved_pixels(image), (Words{0x050505, 0x040404}));
  EXPECT_EQ(bmpExBrightness(image, 250), 1);
  EXPECT_EQ(saved_pixels(image), (Words{0xFFFFFF, 0xFEFEFE}));
  EXPECT_EQ(bmpExThreshold(image, 254), 1);  // 255 × 255 > 254 × 256 turns black
  EXPECT_EQ(saved_pixels(image), (Words{0x000000, 0xFFFFFF}));
  bmpExHandle overlay = new_image();
  bmpExLoadFromBits(overlay, file.data());
  // The source's bottom-left pixel (picture row 1), drawn into both pixels.
  EXPECT_EQ(bmpExDrawBitmap(image, 0, 0, 1, 0, overlay, 0, 1, 0, 0, 100, 0), 1);
  EXPECT_EQ(saved_pixels(image), (Words{0x010101, 0x010101}));
  EXPECT_EQ(bmpExDrawBitmap(image, 0, 0, 1, 0, nullptr, 0, 0, 0, 0, 100, 0), 1);
}

}  // namespace
