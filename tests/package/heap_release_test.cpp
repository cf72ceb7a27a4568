// Every block the library hands out goes back through its own release
// export. Run under Wine with heap checking (WINEDEBUG=warn+heap): a block
// freed on the wrong heap or twice makes Wine log a heap warning, which
// fails the test.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "qnutil/qnutil_win32.h"
#include "support/test_support.h"

namespace {

constexpr int kCycles = 50;

TEST(HeapRelease, EnvironmentsAndTheirTrees) {
  for (int i = 0; i < kCycles; ++i) {
    EnvHandle* fallback = env_open(1, nullptr);
    EnvHandle* env = env_open(2, fallback);
    ASSERT_NE(env, nullptr);
    ASSERT_EQ(env_put_string(env, "wall", "height", "2.75"), 0);
    ASSERT_EQ(env_put_string(env, "wall", "layer@3", "brick"), 0);
    EXPECT_EQ(env_close(env, 1), 0);
  }
}

TEST(HeapRelease, DirectoryListings) {
  qnutil_test::ScratchDir dir;
  for (const char* name : {"a.txt", "b.txt", "c.bmp"}) qnutil_test::write_file(dir.file(name), "x");
  for (int i = 0; i < kCycles; ++i) {
    QnUtilDirEntry* list = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(QnUtil_Listdir(dir.path().string().c_str(), "*.*", 0, &list, &count), 0);
    EXPECT_GE(count, 3u);
    QnUtil_FreeEntries(&list);
    EXPECT_EQ(list, nullptr);
  }
}

TEST(HeapRelease, FioAndIniHandles) {
  qnutil_test::ScratchDir dir;
  const std::string folder = dir.path().string();
  qnutil_test::write_file(dir.file("settings.ini"), "[Section]\r\n");
  for (int i = 0; i < kCycles; ++i) {
    QnUtilFioFile* file =
        fio_open(folder.c_str(), "data.bin", QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(fio_close(file), 0);
    MiniHandle ini = mini_open(folder.c_str(), "settings.ini", 0);
    ASSERT_NE(ini, nullptr);
    EXPECT_EQ(mini_write_long(ini, "Section", "Key", i), 0);
    EXPECT_EQ(mini_close(&ini), 1);
  }
}

TEST(HeapRelease, TriangleArrays) {
  const std::vector<float> square = {0, 0, 10, 0, 10, 10, 0, 10, 5, 5, 2, 7};
  for (int i = 0; i < kCycles; ++i) {
    void* triangles = nullptr;
    unsigned int count = 0;
    ASSERT_EQ(Triangulieren(6, 4, square.data(), &triangles, &count), 1);
    EXPECT_GT(count, 0u);
    EXPECT_EQ(FreeTriangs(&triangles), 1);
    EXPECT_EQ(triangles, nullptr);
  }
}

TEST(HeapRelease, GdiPlusImages) {
  ASSERT_EQ(gdiPlusInit(), 1);
  std::vector<std::uint8_t> pixels(8 * 8 * 4, 0x80);
  for (int i = 0; i < kCycles; ++i) {
    void* image = nullptr;
    ASSERT_EQ(gdiPlusBitmapFromBits(pixels.data(), 8, 8, 4, 4, 255, 0, &image), 1);
    EXPECT_EQ(gdiPlusFreeImage(image), 1);
  }
  EXPECT_EQ(gdiPlusExit(), 1);
}

}  // namespace
