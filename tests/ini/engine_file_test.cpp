// The engine on real files: cache invalidation, atomic replacement and the
// file-level rules (missing files and folders, deletion in a missing file).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ini/profile_engine.h"
#include "support/test_support.h"

namespace qnutil::ini {
namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

std::string get(const std::string& file, const char* section, const char* key) {
  char buffer[256];
  profile_get_string(section, key, "<default>", buffer, sizeof buffer, file.c_str());
  return buffer;
}

TEST(EngineFile, SeesAnOutsideChangeOfTheSameSize) {
  ScratchDir dir;
  const auto path = dir.file("a.ini");
  write_file(path, "[s]\r\nk=one\r\n");
  EXPECT_EQ(get(path, "s", "k"), "one");
  write_file(path + ".tmp", "[s]\r\nk=two\r\n");
  std::filesystem::rename(path + ".tmp", path);  // how editors save
  EXPECT_EQ(get(path, "s", "k"), "two");
}

TEST(EngineFile, SeesAnOutsideRewriteInPlace) {
  ScratchDir dir;
  const auto path = dir.file("a.ini");
  write_file(path, "[s]\r\nk=one\r\n");
  EXPECT_EQ(get(path, "s", "k"), "one");
  write_file(path, "[s]\r\nk=three\r\n");
  EXPECT_EQ(get(path, "s", "k"), "three");
  std::filesystem::remove(path);
  EXPECT_EQ(get(path, "s", "k"), "<default>");
}

TEST(EngineFile, WriteIsVisibleAtOnceAndOnDisk) {
  ScratchDir dir;
  const auto path = dir.file("w.ini");
  ASSERT_TRUE(profile_write_string("s", "k", "v", path.c_str()));
  EXPECT_EQ(read_file(path), "[s]\r\nk=v\r\n");
  EXPECT_EQ(get(path, "s", "k"), "v");
  ASSERT_TRUE(profile_write_string("s", "k", "w", path.c_str()));
  EXPECT_EQ(get(path, "s", "k"), "w");
  // No temporary file is left behind.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                          std::filesystem::directory_iterator()),
            1);
}

TEST(EngineFile, MissingFolderFailsAndCreatesNothing) {
  ScratchDir dir;
  const auto path = dir.file("no/such/dir/x.ini");
  EXPECT_FALSE(profile_write_string("s", "k", "v", path.c_str()));
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "no"));
}

TEST(EngineFile, DeletingInAMissingFileCreatesAnEmptyFile) {
  ScratchDir dir;
  const auto path = dir.file("d.ini");
  EXPECT_TRUE(profile_write_string("s", "k", nullptr, path.c_str()));
  ASSERT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(std::filesystem::file_size(path), 0u);
  const auto other = dir.file("e.ini");
  EXPECT_TRUE(profile_write_string("s", nullptr, nullptr, other.c_str()));
  EXPECT_TRUE(std::filesystem::exists(other));
}

TEST(EngineFile, NullSectionWithKeyIsRefused) {
  ScratchDir dir;
  const auto path = dir.file("n.ini");
  EXPECT_FALSE(profile_write_string(nullptr, "k", "v", path.c_str()));
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_FALSE(profile_write_string(nullptr, nullptr, nullptr, path.c_str()));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(EngineFile, FolderOrEmptyPathReadsDefaultAndCannotBeWritten) {
  ScratchDir dir;
  EXPECT_EQ(get(dir.path().string(), "s", "k"), "<default>");
  EXPECT_FALSE(profile_write_string("s", "k", "v", dir.path().string().c_str()));
  EXPECT_EQ(get("", "s", "k"), "<default>");
  EXPECT_FALSE(profile_write_string("s", "k", "v", ""));
}

TEST(EngineFile, ReadOnlyFileIsNotReplaced) {
  ScratchDir dir;
  const auto path = dir.file("ro.ini");
  write_file(path, "[s]\r\nk=v\r\n");
  std::filesystem::permissions(path, std::filesystem::perms::owner_read |
                                         std::filesystem::perms::group_read);
  if (std::ofstream(path, std::ios::app)) GTEST_SKIP() << "permissions do not apply to this user";
  EXPECT_FALSE(profile_write_string("s", "k", "w", path.c_str()));
  EXPECT_EQ(read_file(path), "[s]\r\nk=v\r\n");
}

TEST(EngineFile, UnchangedValueLeavesTheFileAlone) {
  ScratchDir dir;
  const auto path = dir.file("u.ini");
  write_file(path, "[s]\nk=v\n");
  EXPECT_TRUE(profile_write_string("s", "k", "v", path.c_str()));
  EXPECT_EQ(read_file(path), "[s]\nk=v\n");
}

TEST(EngineFile, IntegerReadsThroughTheCache) {
  ScratchDir dir;
  const auto path = dir.file("i.ini");
  write_file(path, "[s]\r\nn=-3\r\n");
  EXPECT_EQ(profile_get_int("s", "n", 0, path.c_str()), 4294967293u);
  EXPECT_EQ(profile_get_int("s", "m", 9, path.c_str()), 9u);
  EXPECT_EQ(profile_get_int("s", "n", 9, dir.file("missing.ini").c_str()), 9u);
}

}  // namespace
}  // namespace qnutil::ini
