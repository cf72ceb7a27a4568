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
using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

namespace {

bmpExHandle new_image() {
  bmpExHandle handle = nullptr;
  EXPECT_EQ(bmpExInit(&handle), 1);
  EXPECT_NE(handle, nullptr);
  return handle;
}

// What the object holds, seen through a saved file ("" when it saved nothing).
std::string saved_bytes(bmpExHandle handle, const ScratchDir& dir) {
  const std::string path = dir.file("saved.bmp");
  std::remove(path.c_str());
  EXPECT_EQ(bmpExSaveToFile(handle, path.c_str()), 1);
  return read_file(path);
}

// An object holding one pixel, 0x030201.
bmpExHandle one_pixel_image() {
  BmpFields s;
  s.pixels = std::string("\x01\x02\x03\x00", 4);
  bmpExHandle handle = new_image();
  bmpExLoadFromBits(handle, bmp_file(s).data());
  return handle;
}

std::vector<uint32_t> loaded_pixels(const std::string& file) {
  ScratchDir dir;
  write_file(dir.path() / "in.bmp", file);
  bmpExHandle handle = new_image();
  EXPECT_EQ(bmpExLoad(handle, dir.file("in.bmp").c_str()), 1);
  return decode_24bit(saved_bytes(handle, dir));
}

TEST(BmpEx, NullHandleGivesZero) {
  const char* path = "unused.bmp";
  const std::string bits = bmp_file({});
  QnBmpFileHeader file{};
  QnBmpInfoHeader info{};
  EXPECT_EQ(bmpExLoad(nullptr, path), 0);
  EXPECT_EQ(bmpExLoadFromBits(nullptr, bits.data()), 0);
  EXPECT_EQ(bmpExLoadFromBits2(nullptr, bits.data(), 1), 0);
  EXPECT_EQ(bmpExLoadFromBits3(nullptr, &file, &info, bits.data()), 0);
  EXPECT_EQ(bmpExSaveToFile(nullptr, path), 0);
  EXPECT_EQ(bmpExSaveAtEnd(nullptr, path), 0);
}

TEST(BmpEx, EmptyObjectSavesNothingButSucceeds) {
  ScratchDir dir;
  bmpExHandle handle = new_image();
  EXPECT_EQ(saved_bytes(handle, dir), "");
  EXPECT_EQ(bmpExLoad(handle, nullptr), 1);
  EXPECT_EQ(bmpExLoadFromBits(handle, nullptr), 1);
  QnBmpInfoHeader info{};
  EXPECT_EQ(bmpExLoadFromBits3(handle, nullptr, &info, "data"), 1);
}

struct DepthCase {
  const char* name;
  BmpFields fields;
  std::vector<uint32_t> expected;  // bottom-up words
};

std::string le16s(std::initializer_list<uint16_t> values) {
  std::string out;
  for (uint16_t v : values) put16(out, v);
  return out;
}

std::vector<uint32_t> grey_palette(int n) {
  std::vector<uint32_t> palette;
  for (int i = 0; i < n; ++i) palette.push_back((static_cast<uint32_t>(i) * 0x010101u) ^ static_cast<uint32_t>(i & 1));
  return palette;
}

std::vector<DepthCase> depth_cases() {
  std::vector<DepthCase> cases;
  {
    BmpFields s;  // 256 entries because biClrUsed is 0
    s.width = 3, s.height = 2, s.bit_count = 8, s.clr_used = 0, s.palette = grey_palette(256);
    s.pixels = std::string("\x00\x01\xFF\x00", 4) + std::string("\x80\x7F\x02\x00", 4);
    const auto p = grey_palette(256);
    cases.push_back({"eight_bit_all_colours", s, {p[0], p[1], p[255], p[128], p[127], p[2]}});
  }
  {
    BmpFields s;  // 16 entries: the pixels start at 54 + 64
    s.width = 2, s.height = 2, s.bit_count = 8, s.clr_used = 16, s.palette = grey_palette(16);
    s.pixels = std::string("\x0F\x03\x00\x00", 4) + std::string("\x00\x01\x00\x00", 4);
    cases.push_back({"eight_bit_sixteen_colours", s, {grey_palette(16)[15], grey_palette(16)[3], 0, grey_palette(16)[1]}});
  }
  {
    BmpFields s;  // 5-5-5 values land in the byte lanes unscaled
    s.width = 3, s.height = 1, s.bit_count = 16;
    s.pixels = le16s({0x7FFF, 0x7C00, 0x001F}) + std::string(2, '\0');
    cases.push_back({"sixteen_bit_unscaled", s, {0x1F1F1F, 0x1F0000, 0x00001F}});
  }
  {
    BmpFields s;
    s.width = 1, s.height = 2, s.bit_count = 24;
    s.pixels = std::string("\x01\x02\x03\x00\x04\x05\x06\x00", 8);
    cases.push_back({"twenty_four_bit_width_one", s, {0x030201, 0x060504}});
  }
  {
    BmpFields s;  // width 3: 9 bytes a row padded to 12
    s.width = 3, s.height = 1, s.bit_count = 24;
    s.pixels = std::string("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x00\x00\x00", 12);
    cases.push_back({"twenty_four_bit_width_three", s, {0x030201, 0x060504, 0x090807}});
  }
  {
    BmpFields s;  // the fourth byte is carried, then dropped by the 24-bit file
    s.width = 2, s.height = 1, s.bit_count = 32;
    s.pixels = std::string("\x01\x02\x03\xAA\x04\x05\x06\xBB", 8);
    cases.push_back({"thirty_two_bit", s, {0x030201, 0x060504}});
  }
  return cases;
}

class BmpExDepth : public testing::TestWithParam<DepthCase> {};

TEST_P(BmpExDepth, LoadsAndSaves) {
  EXPECT_EQ(loaded_pixels(bmp_file(GetParam().fields)), GetParam().expected);
}

TEST_P(BmpExDepth, MemoryLoadersAgreeWithFileLoader) {
  const DepthCase& c = GetParam();
  const std::string file = bmp_file(c.fields);
  ScratchDir dir;
  bmpExHandle handle = new_image();
  EXPECT_EQ(bmpExLoadFromBits(handle, file.data()), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(handle, dir)), c.expected);
  bmpExHandle second = new_image();
  EXPECT_EQ(bmpExLoadFromBits2(second, file.data(), 1), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(second, dir)), c.expected);
  // Separate headers: the data pointer starts at the palette.
  bmpExHandle third = new_image();
  QnBmpFileHeader file_header;
  QnBmpInfoHeader info;
  std::memcpy(&file_header, file.data(), 14);
  std::memcpy(&info, file.data() + 14, 40);
  EXPECT_EQ(bmpExLoadFromBits3(third, &file_header, &info, file.data() + 54), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(third, dir)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Depths, BmpExDepth, testing::ValuesIn(depth_cases()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(BmpEx, SavedFileHasExactBytes) {
  BmpFields s;
  s.width = 3, s.height = 2, s.bit_count = 32;
  s.reserved1 = 7, s.reserved2 = 9, s.size_image = 1234, s.x_pels = -5;
  s.pixels = std::string("\x01\x02\x03\xFF\x04\x05\x06\xFF\x07\x08\x09\xFF"
                         "\x0A\x0B\x0C\xFF\x0D\x0E\x0F\xFF\x10\x11\x12\xFF", 24);
  ScratchDir dir;
  write_file(dir.path() / "in.bmp", bmp_file(s));
  bmpExHandle handle = new_image();
  bmpExLoad(handle, dir.file("in.bmp").c_str());
  std::string expected;
  put16(expected, 0x4D42);
  put32(expected, 54 + 2 * 12);
  put16(expected, 7);
  put16(expected, 9);
  put32(expected, 54);
  BmpFields header = s;
  header.bit_count = 24;  // everything else in the info header as held
  expected += info_header(header);
  expected += std::string("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x00\x00\x00"
                          "\x0A\x0B\x0C\x0D\x0E\x0F\x10\x11\x12\x00\x00\x00", 24);
  EXPECT_EQ(saved_bytes(handle, dir), expected);
  // Saving again gives the same file: the object is back in its working form.
  EXPECT_EQ(saved_bytes(handle, dir), expected);
}

TEST(BmpEx, TwentyFourBitFileRoundTripsByteForByte) {
  BmpFields s;
  s.width = 5, s.height = 3, s.bit_count = 24;
  const auto words = pattern_words(15, 3);
  std::vector<uint32_t> colours;
  for (uint32_t w : words) colours.push_back(w & 0xFFFFFF);
  s.pixels = rows_24bit(colours, 5, 3);
  ScratchDir dir;
  write_file(dir.path() / "in.bmp", bmp_file(s));
  bmpExHandle handle = new_image();
  bmpExLoad(handle, dir.file("in.bmp").c_str());
  EXPECT_EQ(saved_bytes(handle, dir), bmp_file(s));
}

TEST(BmpEx, LowDepthFilesLeaveTheObjectEmpty) {
  for (uint16_t depth : {1, 4}) {
    BmpFields low;
    low.width = 8, low.height = 1, low.bit_count = depth, low.clr_used = 2, low.palette = {0, 0xFFFFFF};
    low.pixels = std::string(4, '\x55');
    ScratchDir dir;
    write_file(dir.path() / "low.bmp", bmp_file(low));
    bmpExHandle handle = one_pixel_image();
    EXPECT_EQ(bmpExLoad(handle, dir.file("low.bmp").c_str()), 1);
    EXPECT_EQ(saved_bytes(handle, dir), "") << "depth " << depth;
  }
}

TEST(BmpEx, MissingFileKeepsThePreviousImage) {
  ScratchDir dir;
  bmpExHandle handle = one_pixel_image();
  EXPECT_EQ(bmpExLoad(handle, dir.file("missing.bmp").c_str()), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(handle, dir)), std::vector<uint32_t>{0x030201});
}

TEST(BmpEx, OffsetBeyondThePaletteIsReadAsPixels) {
  BmpFields s;
  s.width = 2, s.height = 1, s.bit_count = 24, s.off_bits = 58;
  s.pixels = std::string("\xA1\xA2\xA3\xA4\x01\x02\x03\x04\x05\x06\x00\x00", 12);
  // The four gap bytes are the first pixel and a half.
  EXPECT_EQ(loaded_pixels(bmp_file(s)), (std::vector<uint32_t>{0xA3A2A1, 0x0201A4}));
}

TEST(BmpEx, ShortFileReadsMissingPixelsAsBlack) {
  BmpFields s;
  s.width = 2, s.height = 2, s.bit_count = 24;
  s.pixels = std::string("\x01\x02\x03\x04\x05\x06\x00\x00\x07", 9);  // second row cut short
  EXPECT_EQ(loaded_pixels(bmp_file(s)), (std::vector<uint32_t>{0x030201, 0x060504, 0x000007, 0x000000}));
}

TEST(BmpEx, PaletteCountOfAnEarlierImageMovesLaterMemoryPixels) {
  BmpFields eight;
  eight.width = 1, eight.height = 1, eight.bit_count = 8, eight.clr_used = 16, eight.palette = grey_palette(16);
  eight.pixels = std::string("\x02\x00\x00\x00", 4);
  BmpFields deep;
  deep.pixels = std::string(64, '\x11') + std::string("\x01\x02\x03\x00", 4);
  ScratchDir dir;
  bmpExHandle handle = new_image();
  bmpExLoadFromBits(handle, bmp_file(eight).data());
  bmpExLoadFromBits(handle, bmp_file(deep).data());
  // 16 palette entries still count: the pixels are read from 54 + 64.
  EXPECT_EQ(decode_24bit(saved_bytes(handle, dir)), std::vector<uint32_t>{0x030201});
}

TEST(BmpEx, PackedDibReadsPaletteFromFileHeaderOffset) {
  BmpFields s;
  s.width = 1, s.height = 1, s.bit_count = 8, s.clr_used = 2, s.palette = {0x111111, 0x222222};
  // Info header, the 8 palette bytes, then pixels at 40 + 8; the palette
  // itself is read from byte 54.
  std::string dib = info_header(s) + std::string(8, '\0') + std::string("\x01\x00\x00\x00", 4);
  dib.resize(54, '\0');
  put32(dib, 0x0000FF);
  put32(dib, 0x00FF00);
  ScratchDir dir;
  bmpExHandle handle = new_image();
  EXPECT_EQ(bmpExLoadFromBits2(handle, dib.data(), 0), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(handle, dir)), std::vector<uint32_t>{0x00FF00});
}

TEST(BmpEx, ImpossibleSizesLeaveTheObjectEmpty) {
  struct Case {
    int width, height;
    uint16_t depth;
    uint32_t clr_used;
  } cases[] = {{2, -2, 24, 0},      {-3, 2, 24, 0},         {0x7FFFFFFF, 0x7FFFFFFF, 24, 0},
               {70000, 70000, 32, 0}, {1, 1, 8, 1000000}, {1000, 1000, 65535, 0}};
  for (const Case& c : cases) {
    BmpFields s;
    s.width = c.width, s.height = c.height, s.bit_count = c.depth, s.clr_used = c.clr_used;
    s.pixels = std::string(16, '\x33');
    ScratchDir dir;
    write_file(dir.path() / "in.bmp", bmp_file(s));
    bmpExHandle handle = new_image();
    EXPECT_EQ(bmpExLoad(handle, dir.file("in.bmp").c_str()), 1);
    EXPECT_EQ(saved_bytes(handle, dir), "") << c.width << "x" << c.height << " depth " << c.depth;
  }
}

TEST(BmpEx, SaveAtEndAppendsToAnExistingFile) {
  BmpFields s;
  s.width = 3, s.height = 2, s.bit_count = 24;
  s.pixels = rows_24bit({1, 2, 3, 4, 5, 6}, 3, 2);
  ScratchDir dir;
  bmpExHandle handle = new_image();
  bmpExLoadFromBits(handle, bmp_file(s).data());
  const std::string prefix = "existing content\n";
  write_file(dir.path() / "log.bin", prefix);
  EXPECT_EQ(bmpExSaveAtEnd(handle, dir.file("log.bin").c_str()), 1);
  const std::string after = read_file(dir.path() / "log.bin");
  ASSERT_EQ(after.size(), prefix.size() + 54 + 2 * 12);
  EXPECT_EQ(after.substr(0, prefix.size()), prefix);
  EXPECT_EQ(after.substr(prefix.size()), saved_bytes(handle, dir));
}

TEST(BmpEx, SaveAtEndOnAMissingFileCreatesNothing) {
  ScratchDir dir;
  bmpExHandle handle = one_pixel_image();
  EXPECT_EQ(bmpExSaveAtEnd(handle, dir.file("missing.bin").c_str()), 1);
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "missing.bin"));
  EXPECT_EQ(decode_24bit(saved_bytes(handle, dir)), std::vector<uint32_t>{0x030201});
}

}  // namespace

namespace {

TEST(BmpExOperations, NullHandleGivesZero) {
  int width = 0;
  EXPECT_EQ(bmpExGetSize(nullptr, &width, nullptr), 0);
  EXPECT_EQ(bmpExCrop(nullptr, 0, 0, 1, 1), 0);
  EXPECT_EQ(bmpExFlip(nullptr, 1), 0);
  EXPECT_EQ(bmpExThreshold(nullptr, 1), 0);
  EXPECT_EQ(bmpExBlur(nullptr), 0);
  EXPECT_EQ(bmpExBrightness(nullptr, 1), 0);
  EXPECT_EQ(bmpExContrast(nullptr, 1), 0);
  EXPECT_EQ(bmpExTint(nullptr, 1), 0);
  EXPECT_EQ(bmpExConvertHsi(nullptr, 1), 0);
  EXPECT_EQ(bmpExDrawBitmap(nullptr, 0, 0, 1, 1, nullptr, 0, 0, 1, 1, 100, 0), 0);
}

TEST(BmpExOperations, ReachTheEngine) {
  BmpFields s;
  s.width = 3, s.height = 2, s.bit_count = 24;
  s.pixels = rows_24bit({0x010101, 0x020202, 0x030303, 0x040404, 0x050505, 0x060606}, 3, 2);
  ScratchDir dir;
  bmpExHandle image = new_image();
  bmpExLoadFromBits(image, bmp_file(s).data());
  int width = 0, height = 0;
  EXPECT_EQ(bmpExGetSize(image, &width, &height), 1);
  EXPECT_EQ(width, 3);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(bmpExFlip(image, 1), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(image, dir)),
            (std::vector<uint32_t>{0x030303, 0x020202, 0x010101, 0x060606, 0x050505, 0x040404}));
  EXPECT_EQ(bmpExCrop(image, 1, 0, 2, 1), 1);  // top row (buffer row 1), columns 1 and 2
  EXPECT_EQ(decode_24bit(saved_bytes(image, dir)), (std::vector<uint32_t>{0x050505, 0x040404}));
  EXPECT_EQ(bmpExBrightness(image, 250), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(image, dir)), (std::vector<uint32_t>{0xFFFFFF, 0xFEFEFE}));
  EXPECT_EQ(bmpExThreshold(image, 254), 1);  // 255 × 255 > 254 × 256 turns black
  EXPECT_EQ(decode_24bit(saved_bytes(image, dir)), (std::vector<uint32_t>{0x000000, 0xFFFFFF}));
  bmpExHandle overlay = new_image();
  bmpExLoadFromBits(overlay, bmp_file(s).data());
  // The source's bottom-left pixel (picture row 1), drawn into both pixels.
  EXPECT_EQ(bmpExDrawBitmap(image, 0, 0, 1, 0, overlay, 0, 1, 0, 0, 100, 0), 1);
  EXPECT_EQ(decode_24bit(saved_bytes(image, dir)), (std::vector<uint32_t>{0x010101, 0x010101}));
  EXPECT_EQ(bmpExDrawBitmap(image, 0, 0, 1, 0, nullptr, 0, 0, 0, 0, 100, 0), 1);
}

}  // namespace
