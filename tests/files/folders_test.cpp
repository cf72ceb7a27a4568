// The system version, the host's data folders and its install location in
// the registry.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

#ifdef _WIN32
#include <shlobj.h>
#else
#include <sys/utsname.h>
#endif

namespace {

TEST(GetOperatingSystem, MatchesThePlatformsOwnAnswer) {
  unsigned major = 99, minor = 99;
  EXPECT_EQ(QnUtil_GetOperatingSystem(nullptr, &minor), 0);
  EXPECT_EQ(QnUtil_GetOperatingSystem(&major, nullptr), 0);
  ASSERT_EQ(QnUtil_GetOperatingSystem(&major, &minor), 1);
#ifdef _WIN32
  OSVERSIONINFOA info{};
  info.dwOSVersionInfoSize = sizeof info;
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
  ASSERT_TRUE(GetVersionExA(&info));
  EXPECT_EQ(major, info.dwMajorVersion);
  EXPECT_EQ(minor, info.dwMinorVersion);
#else
  utsname names{};
  ASSERT_EQ(uname(&names), 0);
  unsigned release_major = 0, release_minor = 0;
  ASSERT_EQ(std::sscanf(names.release, "%u.%u", &release_major, &release_minor), 2);
  EXPECT_EQ(major, release_major);
  EXPECT_EQ(minor, release_minor);
#endif
}

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

// A key of the local-machine hive that exists for one test.
struct TestKey {
  TestKey() {
    HKEY key = nullptr;
    created = RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                              nullptr, &key, nullptr) == ERROR_SUCCESS;
    if (created) RegCloseKey(key);
  }
  ~TestKey() {
    if (created) RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
  }
  const std::string path = "Software\\QnUtilTest\\" + std::to_string(GetCurrentProcessId());
  bool created = false;
};

// Whole values that fit are copied; a missing key or value gives zero.
TEST(InstallLocation, CopiesWholeValuesThatFit) {
  char missing[64] = "";
  EXPECT_EQ(GetLocalMachineRegistryEntry("Software\\QnUtilTest\\no such key", 64, missing), 0);
  TestKey key;
  if (!key.created) GTEST_SKIP() << "no write access to the local-machine hive";
  EXPECT_EQ(GetLocalMachineRegistryEntry(key.path.c_str(), 64, missing), 0);
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
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, key.path.c_str(), "InstallLocation", row.type,
                    row.stored.data(), static_cast<DWORD>(row.stored.size()));
    std::vector<char> buf(row.stored.size() + 8, '#');
    EXPECT_EQ(GetLocalMachineRegistryEntry(key.path.c_str(), row.size, buf.data()), row.result)
        << row.size;
    const std::string expected = row.result ? row.stored : std::string(row.stored.size(), '#');
    EXPECT_EQ(std::string(buf.data(), row.stored.size()), expected) << row.size;
    EXPECT_EQ(std::string(buf.data() + row.stored.size(), 8), std::string(8, '#'));
  }
}

#endif

}  // namespace
