// INI writes and material saves lose nothing: concurrent writers of other
// processes, a full disk at any point, a rewrite by root of another user's
// file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <thread>

#include "qnutil/qnutil.h"
#include "support/faults.h"
#include "support/test_support.h"

namespace {

using qnutil_test::folder_names;
using qnutil_test::read_file;
using qnutil_test::write_file;

class IniDurability : public testing::Test {
 protected:
  qnutil_test::ScratchDir dir_;
  const std::string path_ = dir_.file("settings.ini");
};

TEST_F(IniDurability, ProcessesWritingDifferentKeysLoseNone) {
  write_file(path_, "[s]\r\n");
  constexpr int kWriters = 3, kKeys = 150;
  pid_t writers[kWriters];
  for (int w = 0; w < kWriters; ++w) {
    writers[w] = qnutil_test::start_child([&, w] {
      MiniHandle file = mini_open_ex(path_.c_str(), 0);
      for (int k = 0; k < kKeys; ++k) {
        mini_write_long(file, "s", ("w" + std::to_string(w) + "k" + std::to_string(k)).c_str(),
                        w * 1000 + k);
      }
      mini_close(&file);
    });
  }
  for (const pid_t writer : writers) ASSERT_EQ(qnutil_test::wait_child(writer), 0);
  MiniHandle file = mini_open_ex(path_.c_str(), QNUTIL_MINI_READ);
  int lost = 0;
  for (int w = 0; w < kWriters; ++w) {
    for (int k = 0; k < kKeys; ++k) {
      long value = -1;
      const std::string key = "w" + std::to_string(w) + "k" + std::to_string(k);
      if (mini_read_long(file, "s", key.c_str(), &value) != QNUTIL_OK || value != w * 1000 + k) {
        ++lost;
      }
    }
  }
  mini_close(&file);
  EXPECT_EQ(lost, 0);
}

TEST_F(IniDurability, FullDiskKeepsTheOldFileAndTheWriteReportsIt) {
  std::string old_bytes = "[s]\r\n";
  for (int i = 0; i < 40; ++i) old_bytes += "key" + std::to_string(i) + "=value\r\n";
  write_file(path_, old_bytes);
  const std::string value(200, 'v');
  for (off_t limit = 0; limit < static_cast<off_t>(old_bytes.size()) + 200; limit += 7) {
    const int result = qnutil_test::run_with_file_limit(limit, [&] {
      MiniHandle file = mini_open_ex(path_.c_str(), 0);
      const int written = mini_write_string(file, "s", "new", value.c_str());
      mini_close(&file);
      return written == QNUTIL_OK ? 0 : 1;
    });
    ASSERT_EQ(result, 1) << "cut at " << limit;
    ASSERT_EQ(read_file(path_), old_bytes) << "cut at " << limit;
    ASSERT_EQ(folder_names(dir_.path()), std::vector<std::string>{"settings.ini"});
  }
}

constexpr char kGlass[] = "[Material]\r\nName=Glas\r\n[Glas]\r\nkdiffus=0.5\r\nOe=4\r\n";

TEST_F(IniDurability, MaterialSaveIsAllOrNothingAndSaysWhich) {
  const std::string path = dir_.file("glass.mat");
  write_file(path, kGlass);
  CQnMatFile material(path);
  ASSERT_EQ(material.IsLoaded(), 1);
  material.SetLogName("Stein");  // the old section goes, the new one comes
  material.GetMaterialPtr()->kdiffus = 0.25f;
  ASSERT_EQ(material.Write(dir_.file("reference.mat")), 0);  // must exist
  write_file(dir_.file("reference.mat"), kGlass);
  ASSERT_EQ(material.Write(dir_.file("reference.mat")), 1);
  const std::string new_bytes = read_file(dir_.file("reference.mat"));
  std::filesystem::remove(dir_.file("reference.mat"));
  for (off_t limit = 0; limit < static_cast<off_t>(new_bytes.size()); ++limit) {
    const int result = qnutil_test::run_with_file_limit(limit, [&] { return material.Write(); });
    ASSERT_EQ(result, 0) << "cut at " << limit;
    ASSERT_EQ(read_file(path), kGlass) << "cut at " << limit;
    ASSERT_EQ(folder_names(dir_.path()), std::vector<std::string>{"glass.mat"}) << limit;
  }
  EXPECT_EQ(material.Write(), 1);
  EXPECT_EQ(read_file(path), new_bytes);
}

// A rewrite keeps the file's mode and, done by root, its owner and group;
// written through a symbolic link, the link stays a link.
TEST_F(IniDurability, RewritesKeepModeAndOwner) {
  const bool root = ::geteuid() == 0;
  const std::string material_path = dir_.file("glass.mat");
  write_file(path_, "[s]\r\nk=1\r\n");
  write_file(material_path, kGlass);
  for (const std::string& path : {path_, material_path}) {
    ASSERT_EQ(::chmod(path.c_str(), 0604), 0);
    if (root) {
      ASSERT_EQ(::chown(path.c_str(), 4242, 4343), 0);
    }
  }
  const std::string link = dir_.file("link.ini");
  std::filesystem::create_symlink(path_, link);
  MiniHandle file = mini_open_ex(link.c_str(), 0);
  ASSERT_EQ(mini_write_long(file, "s", "k", 2), QNUTIL_OK);
  mini_close(&file);
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  CQnMatFile material(material_path);
  material.GetMaterialPtr()->alpha = 0.5f;
  ASSERT_EQ(material.Write(), 1);
  for (const std::string& path : {path_, material_path}) {
    struct stat info {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0604u) << path;
    if (root) {
      EXPECT_EQ(info.st_uid, 4242u) << path;
      EXPECT_EQ(info.st_gid, 4343u) << path;
    }
  }
  EXPECT_NE(read_file(material_path).find("alpha=0.5\r\n"), std::string::npos);
}

}  // namespace
