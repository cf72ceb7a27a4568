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

namespace fs = std::filesystem;
using qnutil_test::read_file;
using qnutil_test::write_file;

std::string get(const std::string& file, const char* section, const char* key) {
  char buffer[256];
  profile_get_string(section, key, "<default>", buffer, sizeof buffer, file.c_str());
  return buffer;
}

bool put(const std::string& file, const char* section, const char* key, const char* value) {
  return profile_write_string(section, key, value, file.c_str());
}

class EngineFile : public testing::Test {
 protected:
  qnutil_test::ScratchDir dir_;
  std::string path_ = dir_.file("a.ini");
};

TEST_F(EngineFile, SeesOutsideChanges) {
  write_file(path_, "[s]\r\nk=one\r\n");
  EXPECT_EQ(get(path_, "s", "k"), "one");
  write_file(path_ + ".tmp", "[s]\r\nk=two\r\n");
  fs::rename(path_ + ".tmp", path_);  // how editors save: same size, another file
  EXPECT_EQ(get(path_, "s", "k"), "two");
  write_file(path_, "[s]\r\nk=three\r\n");  // rewritten in place
  EXPECT_EQ(get(path_, "s", "k"), "three");
  fs::remove(path_);
  EXPECT_EQ(get(path_, "s", "k"), "<default>");
}

TEST_F(EngineFile, WriteIsVisibleAtOnceAndOnDisk) {
  ASSERT_TRUE(put(path_, "s", "k", "v"));
  EXPECT_EQ(read_file(path_), "[s]\r\nk=v\r\n");
  EXPECT_EQ(get(path_, "s", "k"), "v");
  ASSERT_TRUE(put(path_, "s", "k", "w"));
  EXPECT_EQ(get(path_, "s", "k"), "w");
  // No temporary file is left behind.
  EXPECT_EQ(std::distance(fs::directory_iterator(dir_.path()), fs::directory_iterator()), 1);
  write_file(path_, "[s]\nk=v\nn=-3\n");
  EXPECT_TRUE(put(path_, "s", "k", "v"));  // unchanged: the file stays as it is
  EXPECT_EQ(read_file(path_), "[s]\nk=v\nn=-3\n");
  EXPECT_EQ(profile_get_int("s", "n", 0, path_.c_str()), 4294967293u);
  EXPECT_EQ(profile_get_int("s", "m", 9, path_.c_str()), 9u);
  EXPECT_EQ(profile_get_int("s", "n", 9, dir_.file("missing.ini").c_str()), 9u);
}

TEST_F(EngineFile, RefusedWritesCreateNothing) {
  EXPECT_FALSE(put(dir_.file("no/such/dir/x.ini"), "s", "k", "v"));
  EXPECT_FALSE(fs::exists(dir_.path() / "no"));
  EXPECT_FALSE(put(path_, nullptr, "k", "v"));
  EXPECT_FALSE(put(path_, nullptr, nullptr, nullptr));
  EXPECT_FALSE(fs::exists(path_));
  EXPECT_EQ(get(dir_.path().string(), "s", "k"), "<default>");
  EXPECT_FALSE(put(dir_.path().string(), "s", "k", "v"));
  EXPECT_EQ(get("", "s", "k"), "<default>");
  EXPECT_FALSE(put("", "s", "k", "v"));
}

TEST_F(EngineFile, DeletingInAMissingFileCreatesAnEmptyFile) {
  EXPECT_TRUE(put(path_, "s", "k", nullptr));
  ASSERT_TRUE(fs::exists(path_));
  EXPECT_EQ(fs::file_size(path_), 0u);
  const auto other = dir_.file("e.ini");
  EXPECT_TRUE(put(other, "s", nullptr, nullptr));
  EXPECT_TRUE(fs::exists(other));
}

TEST_F(EngineFile, ReadOnlyFileIsNotReplaced) {
  write_file(path_, "[s]\r\nk=v\r\n");
  fs::permissions(path_, fs::perms::owner_read | fs::perms::group_read);
  if (std::ofstream(path_, std::ios::app)) GTEST_SKIP() << "permissions do not apply to this user";
  EXPECT_FALSE(put(path_, "s", "k", "w"));
  EXPECT_EQ(read_file(path_), "[s]\r\nk=v\r\n");
}

}  // namespace
}  // namespace qnutil::ini
