// Path splitting and composition. Cases are written with '/' and turned
// into the platform's spelling: '\\' and lower case on Windows.
#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

#ifdef _WIN32
#include <stdlib.h>
#include <windows.h>
#endif

namespace {

using qnutil_test::makepath;
using qnutil_test::native_path;

const char* native(const char* text, std::string& storage) {
  if (text == nullptr) return nullptr;
  storage = native_path(text);
  return storage.c_str();
}

std::string expected_path(std::string text) {
  text = native_path(text);
#ifdef _WIN32
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
#endif
  return text;
}

// Each row: base, sub-folder, file name, the composed path.
TEST(Makepath, ComposesPieces) {
  using Row = std::array<const char*, 4>;
  std::vector<Row> rows = {{"/Base", "Sub", "f.TXT", "/Base/Sub/f.TXT"},
                           {nullptr, nullptr, nullptr, ""},
                           {"", "", "", ""},
                           {nullptr, "sub/", "f.txt", "sub/f.txt"},
                           {nullptr, "sub", "/f.txt", "sub/f.txt"},
                           {"base", nullptr, "f", "base/f"},
                           {nullptr, "Sub", nullptr, "Sub"},
                           {"b", "s", nullptr, "b/s"},
                           {"b/", "/s/", "f", "b/s/f"},
                           {"a", "b", "c/d/e.f", "a/b/c/d/e.f"},
                           {"/", nullptr, "f", "/f"},
                           {"a", "", "f", "a/f"}};
#ifdef _WIN32
  // A drive ends the climb.
  rows.insert(rows.end(), {{"C:\\base", "sub", "f.TXT", "c:\\base\\sub\\f.txt"},
                           {"C:\\base", "sub", "D:\\x\\f.txt", "d:\\x\\f.txt"},
                           {"C:\\b", "E:\\s", "f", "e:\\s\\f"},
                           {"C:\\b", "s", "D:f", "d:f"},
                           {"C:", "s", "f", "c:s\\f"}});
#else
  // No drive letters.
  rows.insert(rows.end(), {{"C:/base", "Sub", "D:/f.TXT", "C:/base/Sub/D:/f.TXT"},
                           {nullptr, "a\\", "f", "a\\/f"}});
#endif
  for (const auto& [base, sub, file, expected] : rows) {
    std::string base_text, sub_text, file_text;
    EXPECT_EQ(makepath(native(base, base_text), native(sub, sub_text), native(file, file_text)),
              expected_path(expected))
        << expected;
  }
}

#ifdef _WIN32
// Only a backslash counts as the separator at a joint.
TEST(Makepath, SlashIsNoBackslashAtTheJoint) { EXPECT_EQ(makepath(nullptr, "a/", "\\f"), "a/\\f"); }
#endif

TEST(Makepath, NullOutputWritesNothingAndOverlongResultIsCut) {
  EXPECT_EQ(QnUtil_Makepath(nullptr, "a", "b", "c"), nullptr);
  const std::string piece(200, 'a');
  char out[QNUTIL_PATH_SIZE + 8];
  std::memset(out, 'x', sizeof out);
  QnUtil_Makepath(out, piece.c_str(), piece.c_str(), piece.c_str());
  EXPECT_EQ(std::strlen(out), QNUTIL_PATH_SIZE - 1u);
  EXPECT_EQ(out[QNUTIL_PATH_SIZE], 'x');
}

// Pieces are cut to their buffers; a null path gives empty pieces.
TEST(Divide, SplitsIntoThreePieces) {
  const std::string long_path = std::string(400, 'd').append("/").append(400, 'n');
  const std::string long_dir(QNUTIL_FOLDER_SIZE - 1, 'd'), long_name(QNUTIL_NAME_SIZE - 1, 'n');
  const struct {
    const char* path;
    const char* dir;
    const char* name;
  } cases[] = {{nullptr, "", ""},
               {"", "", ""},
               {"f.txt", "", "f.txt"},
               {"/a/b/f.tar.gz", "/a/b/", "f.tar.gz"},
               {"a/b/", "a/b/", ""},
               {".profile", "", ".profile"},
               {"a.d/noext", "a.d/", "noext"},
               {long_path.c_str(), long_dir.c_str(), long_name.c_str()}};
  for (const auto& c : cases) {
    std::string path, dir, name;
    char drive_out[QNUTIL_DRIVE_SIZE] = "x", dir_out[QNUTIL_FOLDER_SIZE] = "x";
    char name_out[QNUTIL_NAME_SIZE] = "x";
    EXPECT_EQ(QnUtil_Divide(native(c.path, path), drive_out, dir_out, name_out), 0);
    EXPECT_STREQ(drive_out, "") << c.path;
    EXPECT_STREQ(dir_out, native(c.dir, dir)) << c.path;
    EXPECT_STREQ(name_out, native(c.name, name)) << c.path;
  }
}

#ifdef _WIN32
// The run-time's own splitter is the reference for paths within its limits.
TEST(Divide, AgreesWithTheRunTimeSplitter) {
  for (const char* path : {"C:\\a\\b.c", "c:f", "\\\\server\\share\\f.x", "C:/x/y/", "x:", "a:b:c",
                           "..\\up", "C:\\dir.d\\file", "/mixed\\seps/f"}) {
    char drive[_MAX_DRIVE], dir[_MAX_DIR], fname[_MAX_FNAME], ext[_MAX_EXT];
    _splitpath(path, drive, dir, fname, ext);
    char our_drive[QNUTIL_DRIVE_SIZE], our_dir[QNUTIL_FOLDER_SIZE], our_name[QNUTIL_NAME_SIZE];
    QnUtil_Divide(path, our_drive, our_dir, our_name);
    EXPECT_STREQ(our_drive, drive) << path;
    EXPECT_STREQ(our_dir, dir) << path;
    EXPECT_EQ(std::string(our_name), std::string(fname) + ext) << path;
  }
}
#endif

TEST(GetExtensionPos, FindsTheLastDotAfterTheFirstCharacter) {
  const std::pair<const char*, int> cases[] = {
      {"a", -1},  {"", -1},  {".x", -1}, {nullptr, -1},      {"a.b.c", 3},
      {"ab.", 2}, {"a.", 1}, {"..", 1},  {"dir.d\\file", 3}, {"dir.d/file", 3}};
  for (const auto& [name, position] : cases)
    EXPECT_EQ(QnUtil_GetExtensionPos(name), position) << (name ? name : "null");
}

#ifdef _WIN32
// Run with a double-byte ANSI code page (e.g. Wine with LANG=ja_JP.UTF-8,
// code page 932): 0x5C as the trail byte of a character is no separator.
class DoubleByteCodePage : public ::testing::Test {
 protected:
  void SetUp() override {
    if (IsDBCSLeadByte(0x95)) return;
    // The run with a Japanese locale must really get a double-byte code page.
    if (std::getenv("QNUTIL_TEST_DOUBLE_BYTE") != nullptr) FAIL() << "ANSI code page " << GetACP();
    GTEST_SKIP() << "ANSI code page " << GetACP() << " has no lead byte 0x95";
  }
};

// "\x95\x5C" is one Shift-JIS character ending in the byte of '\\'; "\x83\x41"
// one whose trail byte is the byte of 'A', which lower-casing leaves.
TEST_F(DoubleByteCodePage, TrailBytesAreNoSeparatorsAndKeepTheirCase) {
  EXPECT_EQ(makepath(nullptr, "\x95\x5C", "f.txt"), "\x95\x5C\\f.txt");
  EXPECT_EQ(makepath(nullptr, "\x95\x5C\\", "\\f.txt"), "\x95\x5C\\f.txt");
  char drive[QNUTIL_DRIVE_SIZE], dir[QNUTIL_FOLDER_SIZE], name[QNUTIL_NAME_SIZE];
  QnUtil_Divide("a\\\x95\x5C", drive, dir, name);
  EXPECT_STREQ(dir, "a\\");
  EXPECT_STREQ(name, "\x95\x5C");
  EXPECT_EQ(makepath("C:\\D", nullptr, "\x83\x41.TXT"), "c:\\d\\\x83\x41.txt");
}
#endif

}  // namespace
