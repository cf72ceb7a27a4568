// The bmpEx exports: results, loaders of every depth, the exact bytes of
// saved files, and inputs that must not crash.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
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

Words grey_palette(int n) {
  Words palette;
  for (int i = 0; i < n; ++i)
    palette.push_back((static_cast<uint32_t>(i) * 0x010101u) ^ static_cast<uint32_t>(i & 1));
  return palette;
}

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

struct FileCase {
  const char* name;
  BmpFields fields;
  Words expected;  // bottom-up words
  bool file_only =
      false;  // true: the memory loaders would read past the bytes or place pixels elsewhere
};

std::vector<FileCase> file_cases() {
  const auto p = grey_palette(256), p16 = grey_palette(16);
  return {
      // 256 entries because biClrUsed is 0.
      {"eight_bit_all_colours",
       {.width = 3,
        .height = 2,
        .bit_count = 8,
        .palette = p,
        .pixels = "\x00\x01\xFF\x00\x80\x7F\x02\x00"s},
       {p[0], p[1], p[255], p[128], p[127], p[2]}},
      // 16 entries: the pixels start at 54 + 64.
      {"eight_bit_sixteen_colours",
       {.width = 2,
        .height = 2,
        .bit_count = 8,
        .clr_used = 16,
        .palette = p16,
        .pixels = "\x0F\x03\x00\x00\x00\x01\x00\x00"s},
       {p16[15], p16[3], 0, p16[1]}},
      // 5-5-5 values land in the byte lanes unscaled.
      {"sixteen_bit_unscaled",
       {.width = 3, .bit_count = 16, .pixels = "\xFF\x7F\x00\x7C\x1F\x00\x00\x00"s},
       {0x1F1F1F, 0x1F0000, 0x00001F}},
      {"twenty_four_bit_width_one",
       {.height = 2, .pixels = "\x01\x02\x03\x00\x04\x05\x06\x00"s},
       {0x030201, 0x060504}},
      // Width 3: 9 bytes a row padded to 12.
      {"twenty_four_bit_width_three",
       {.width = 3, .pixels = "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x00\x00\x00"s},
       {0x030201, 0x060504, 0x090807}},
      // The fourth byte is carried, then dropped by the 24-bit file.
      {"thirty_two_bit",
       {.width = 2, .bit_count = 32, .pixels = "\x01\x02\x03\xAA\x04\x05\x06\xBB"s},
       {0x030201, 0x060504}},
      // The four gap bytes are the first pixel and a half.
      {"offset_beyond_the_palette_read_as_pixels",
       {.width = 2, .pixels = "\xA1\xA2\xA3\xA4\x01\x02\x03\x04\x05\x06\x00\x00"s, .off_bits = 58},
       {0xA3A2A1, 0x0201A4},
       true},
      // Second row cut short: missing pixels read as black.
      {"short_file",
       {.width = 2, .height = 2, .pixels = "\x01\x02\x03\x04\x05\x06\x00\x00\x07"s},
       {0x030201, 0x060504, 0x000007, 0x000000},
       true},
  };
}

class BmpExFile : public testing::TestWithParam<FileCase> {};

TEST_P(BmpExFile, EveryLoaderGivesThesePixels) {
  const FileCase& c = GetParam();
  const std::string file = bmp_file(c.fields);
  EXPECT_EQ(saved_pixels(load_file(file)), c.expected);
  if (c.file_only) return;
  // Separate headers: the data pointer starts at the palette.
  QnBmpFileHeader file_header;
  QnBmpInfoHeader info;
  std::memcpy(&file_header, file.data(), 14);
  std::memcpy(&info, file.data() + 14, 40);
  const bmpExHandle handles[] = {new_image(), new_image(), new_image()};
  EXPECT_EQ(bmpExLoadFromBits(handles[0], file.data()), 1);
  EXPECT_EQ(bmpExLoadFromBits2(handles[1], file.data(), 1), 1);
  EXPECT_EQ(bmpExLoadFromBits3(handles[2], &file_header, &info, file.data() + 54), 1);
  for (bmpExHandle handle : handles) EXPECT_EQ(saved_pixels(handle), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Files, BmpExFile, testing::ValuesIn(file_cases()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(BmpEx, SavedFileHasExactBytes) {
  BmpFields s{.width = 3,
              .height = 2,
              .bit_count = 32,
              .size_image = 1234,
              .reserved1 = 7,
              .reserved2 = 9,
              .x_pels = -5};
  s.pixels =
      "\x01\x02\x03\xFF\x04\x05\x06\xFF\x07\x08\x09\xFF\x0A\x0B\x0C\xFF\x0D\x0E\x0F\xFF\x10\x11\x12\xFF"s;
  bmpExHandle handle = load_file(bmp_file(s));
  // 24-bit rows; everything else in the headers as held, biSizeImage and the reserved words
  // included.
  s.bit_count = 24;
  s.pixels =
      "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x00\x00\x00\x0A\x0B\x0C\x0D\x0E\x0F\x10\x11\x12\x00\x00\x00"s;
  EXPECT_EQ(saved_bytes(handle), bmp_file(s));
  // Saving again gives the same file: the object is back in its working form.
  EXPECT_EQ(saved_bytes(handle), bmp_file(s));
  // A 24-bit file round-trips byte for byte.
  Words colours = pattern_words(15, 3);
  for (uint32_t& w : colours) w &= 0xFFFFFF;
  const std::string file = bmp_file({.width = 5, .height = 3, .pixels = rows_24bit(colours, 5, 3)});
  EXPECT_EQ(saved_bytes(load_file(file)), file);
}

TEST(BmpEx, UnreadableFilesEmptyTheObjectAndMissingOnesKeepIt) {
  bmpExHandle kept = one_pixel_image();
  EXPECT_EQ(bmpExLoad(kept, ScratchDir().file("missing.bmp").c_str()), 1);
  EXPECT_EQ(saved_pixels(kept), Words{0x030201});
  const BmpFields cases[] = {
      {.width = 8, .bit_count = 1, .clr_used = 2, .palette = {0, 0xFFFFFF}},  // low depths
      {.width = 8, .bit_count = 4, .clr_used = 2, .palette = {0, 0xFFFFFF}},
      {.width = 2, .height = -2},  // impossible sizes
      {.width = -3, .height = 2},
      {.width = 0x7FFFFFFF, .height = 0x7FFFFFFF},
      {.width = 70000, .height = 70000, .bit_count = 32},
      {.bit_count = 8, .clr_used = 1000000},
      {.width = 1000, .height = 1000, .bit_count = 65535}};
  for (BmpFields s : cases) {
    s.pixels = std::string(16, '\x33');
    bmpExHandle handle = load_file(bmp_file(s), one_pixel_image());
    EXPECT_EQ(saved_bytes(handle), "") << s.width << "x" << s.height << " depth " << s.bit_count;
  }
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
