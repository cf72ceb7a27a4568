// The host's data folders and its install location in the registry.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

#ifdef _WIN32
#include <shlobj.h>
#endif

namespace {

// Without any separator the base is glued on, as the host composes it. A
// result beyond the 260-byte folder buffer (219 + 1 + 40 characters of
// folder names need 261 bytes) fails and leaves the buffer unchanged.
TEST(ProgPathAppData, AppendsTheHostsFoldersWhenTheyFit) {
#ifdef _WIN32
  unsigned major = 0, minor = 0;
  QnUtil_GetOperatingSystem(&major, &minor);
  if ((major == 5 && minor <= 2) || (major == 6 && minor == 0))
    GTEST_SKIP() << "system keeps the folder";
#endif
  const std::string folders = "Quarn Software GmbH/Quarn +2011/Programm";
  const std::string longest = "D:/" + std::string(215, 'x');
  const std::pair<std::string, std::string> rows[] = {// base, result ("": refused)
                                                      {"D:/data", "D:/data/" + folders},
                                                      {"D:/data/", "D:/data/" + folders},
                                                      {"", folders},
                                                      {"data", "data" + folders},
                                                      {"/", "/" + folders},
                                                      {longest, longest + "/" + folders},
                                                      {longest + "x", ""}};
  for (const auto& [base, result] : rows) {
    char buf[260];
    std::strcpy(buf, qnutil_test::native_path(base).c_str());
    EXPECT_EQ(QnUtil_GetProgPathAppData(buf), result.empty() ? nullptr : buf) << base;
    EXPECT_EQ(std::string(buf), qnutil_test::native_path(result.empty() ? base : result));
  }
}

#ifndef _WIN32

TEST(ProgPathRoamingAppData, FollowsTheXdgRules) {
  const std::string long_home = "/" + std::string(250, 'h');  // beyond the 260-byte buffer
  const struct {
    const char *data_home, *home;
    int result;
    const char* expected;
  } rows[] = {{"/srv/data", "/home/u", 1, "/srv/data"},
              {nullptr, "/home/u", 1, "/home/u/.local/share"},
              {"relative/data", "/home/u", 1, "/home/u/.local/share"},
              {nullptr, nullptr, 0, "unchanged"},
              {nullptr, "", 0, "unchanged"},
              {nullptr, long_home.c_str(), 0, "unchanged"}};
  for (const auto& row : rows) {
    const qnutil_test::ScopedEnvironmentVariable data_home("XDG_DATA_HOME", row.data_home);
    const qnutil_test::ScopedEnvironmentVariable home("HOME", row.home);
    char buf[260] = "unchanged";
    EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(buf), row.result) << row.expected;
    EXPECT_STREQ(buf, row.expected);
  }
}

#else

TEST(ProgPathRoamingAppData, IsTheShellsRoamingFolder) {
  char expected[MAX_PATH];
  ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, expected), S_OK);
  char buf[260] = "unchanged";
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(buf), 1);
  EXPECT_STREQ(buf, expected);
}

// Whole values that fit are copied; a missing key or value gives zero.
TEST(InstallLocation, CopiesWholeValuesThatFit) {
  char missing[64] = "";
  EXPECT_EQ(GetLocalMachineRegistryEntry("Software\\QnUtilTest\\no such key", 64, missing), 0);
  const std::string key = "Software\\QnUtilTest\\" + std::to_string(GetCurrentProcessId());
  const std::string path("C:\\Quarn\0", 9);
  const struct {
    DWORD type;
    std::string stored;  // bytes as stored, terminator included where wanted
    int size;            // the caller's buffer size
    int result;
  } rows[] = {{REG_SZ, path, 9, 1},
              {REG_SZ, path, 8, 0},
              {REG_BINARY, "", 100, 0},
              {REG_BINARY, std::string(2048, 'v'), 4096, 1},
              {REG_BINARY, std::string(2049, 'v'), 4096, 0}};  // beyond the read buffer
  for (const auto& row : rows) {
    if (RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), "InstallLocation", row.type,
                        row.stored.data(), static_cast<DWORD>(row.stored.size())) != ERROR_SUCCESS)
      GTEST_SKIP() << "no write access to the local-machine hive";
    std::vector<char> buf(row.stored.size() + 8, '#');
    EXPECT_EQ(GetLocalMachineRegistryEntry(key.c_str(), row.size, buf.data()), row.result)
        << row.size;
    const std::string expected = row.result ? row.stored : std::string(row.stored.size(), '#');
    EXPECT_EQ(std::string(buf.data(), row.stored.size()), expected) << row.size;
    EXPECT_EQ(std::string(buf.data() + row.stored.size(), 8), std::string(8, '#'));
  }
  RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, key.c_str(), "InstallLocation");
  EXPECT_EQ(GetLocalMachineRegistryEntry(key.c_str(), 64, missing), 0);
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, key.c_str());
}

#endif

}  // namespace
