// env_write_file replaces a settings file whole or not at all: cut by a
// full disk at any point, killed midway, or read while it is rewritten,
// the file holds the old contents or the new ones.
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "env_fixture.h"
#include "support/faults.h"

using namespace env_test;
using qnutil_test::folder_names;
using qnutil_test::read_file;

namespace {

// An environment of `keys` entries whose values carry `tag`, as its file.
std::string settings_text(int keys, const std::string& tag) {
  std::string text = "[New]\n  first =" + tag + "\n[Walls]\n";
  for (int i = 0; i < keys; ++i) {
    text += "  key" + std::to_string(i) + " =" + tag + std::to_string(i * 7919LL) + "\n";
  }
  return text;
}

class EnvDurability : public testing::Test {
 protected:
  // Writes `text` as settings into target_ and returns the bytes written.
  std::string write_settings(const std::string& text) {
    Env env;
    EXPECT_EQ(read_text(env, text), ENV_OK);
    env_write_file(target_.c_str(), env);
    return read_file(target_);
  }

  qnutil_test::ScratchDir dir_;
  const std::string target_ = dir_.file("settings.env");
};

TEST_F(EnvDurability, FullDiskAtAnyPointKeepsTheOldFile) {
  const std::string old_bytes = write_settings(settings_text(150, "old"));
  const std::string new_text = settings_text(3000, "new");
  Env fresh;
  ASSERT_EQ(read_text(fresh, new_text), ENV_OK);
  const std::string new_bytes = write_text(fresh);
  for (const off_t limit : qnutil_test::cut_points(new_bytes.size(), 30000)) {
    qnutil_test::run_with_file_limit(limit, [&] {
      env_write_file(target_.c_str(), fresh);
      return 0;
    });
    ASSERT_EQ(read_file(target_), old_bytes) << "cut at " << limit;
    ASSERT_EQ(folder_names(dir_.path()), std::vector<std::string>{"settings.env"}) << limit;
  }
  env_write_file(target_.c_str(), fresh);
  EXPECT_EQ(read_file(target_), new_bytes);
}

TEST_F(EnvDurability, KilledWriterLeavesAWholeFileAndItsLeftoverIsCleanedUp) {
  const std::string old_bytes = write_settings(settings_text(200, "old"));
  Env big;
  ASSERT_EQ(read_text(big, settings_text(300000, "new")), ENV_OK);
  const std::string new_bytes = write_text(big);
  int leftovers = 0;
  for (int run = 0; run < 10; ++run) {
    const pid_t writer = qnutil_test::start_child([&] {
      for (;;) env_write_file(target_.c_str(), big);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20 + 13 * run));
    ::kill(writer, SIGKILL);
    qnutil_test::wait_child(writer);
    const std::string bytes = read_file(target_);
    ASSERT_TRUE(bytes == old_bytes || bytes == new_bytes) << "run " << run << ": " << bytes.size();
    leftovers += static_cast<int>(folder_names(dir_.path()).size()) - 1;
  }
  EXPECT_GT(leftovers, 0) << "no writer was killed while writing";
  // The next write removes what the killed writers left.
  env_write_file(target_.c_str(), big);
  EXPECT_EQ(folder_names(dir_.path()), std::vector<std::string>{"settings.env"});
}

}  // namespace
