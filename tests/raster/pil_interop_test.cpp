// The engine against Python's imaging library: it reads the BMP files PIL
// wrote at build time, and writes files that the raster_pil_check test then
// reads with PIL.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "bmp_bytes.h"
#include "qnutil/qnutil.h"
#include "support/test_support.h"

using namespace raster_test;
using qnutil_test::read_file;
using qnutil_test::write_file;

namespace {

// Bottom-up words as PIL's pixel dump: top-down RGB triples.
std::string dump_of_words(const std::vector<uint32_t>& words, int width, int height) {
  std::string dump;
  for (int y = height - 1; y >= 0; --y)
    for (int x = 0; x < width; ++x) {
      const uint32_t w = words[size_t(y) * width + x];
      dump += static_cast<char>(w >> 16);
      dump += static_cast<char>(w >> 8);
      dump += static_cast<char>(w);
    }
  return dump;
}

TEST(PilInterop, ReadsFilesPilWrote) {
  const std::filesystem::path dir = QNUTIL_RASTER_PIL_DIR;
  qnutil_test::ScratchDir scratch;
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(dir)) {
    if (entry.path().extension() != ".bmp") continue;
    const std::string file = read_file(entry.path());
    const int width = static_cast<int>(get(file, 18)), height = static_cast<int>(get(file, 22));
    auto dump_path = entry.path();
    dump_path.replace_extension(".rgb");
    bmpExHandle handle = nullptr;
    ASSERT_EQ(bmpExInit(&handle), 1);
    ASSERT_EQ(bmpExLoad(handle, entry.path().string().c_str()), 1);
    ASSERT_EQ(bmpExSaveToFile(handle, scratch.file("out.bmp").c_str()), 1);
    EXPECT_EQ(dump_of_words(decode_24bit(read_file(scratch.path() / "out.bmp")), width, height),
              read_file(dump_path))
        << entry.path().filename().string();
    ++files;
  }
  EXPECT_GE(files, 30);
}

TEST(PilInterop, WritesFilesForPil) {
  const std::filesystem::path dir = QNUTIL_RASTER_OURS_DIR;
  std::filesystem::create_directories(dir);
  const int sizes[][2] = {{1, 1}, {2, 3}, {3, 2}, {4, 4}, {5, 7}, {31, 3}, {64, 2}};
  uint32_t seed = 1;
  for (const auto& size : sizes) {
    const int width = size[0], height = size[1];
    BmpFields s{.width = width, .height = height, .bit_count = 32};
    const auto words = pattern_words(size_t(width) * height, seed++);
    for (uint32_t w : words) put(s.pixels, w);
    bmpExHandle handle = nullptr;
    ASSERT_EQ(bmpExInit(&handle), 1);
    ASSERT_EQ(bmpExLoadFromBits(handle, bmp_file(s).data()), 1);
    const std::string name = "ours_" + std::to_string(width) + "x" + std::to_string(height);
    ASSERT_EQ(bmpExSaveToFile(handle, (dir / (name + ".bmp")).string().c_str()), 1);
    write_file(dir / (name + ".rgb"), dump_of_words(words, width, height));
  }
}

}  // namespace
