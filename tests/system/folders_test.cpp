#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qnutil/qnutil.h"
#include "system_test_support.h"

#ifdef _WIN32
#include <shlobj.h>
#else
#include <sys/utsname.h>
#endif

namespace {

// Test texts are written with '\\'; POSIX builds compose with '/'.
std::string native(std::string text) {
  for (char& c : text)
    if (c == '\\') c = system_test::kSeparator;
  return text;
}

bool caller_supplies_base_folder() {
#ifdef _WIN32
  unsigned major = 0, minor = 0;
  QnUtil_GetOperatingSystem(&major, &minor);
  return !((major == 5 && minor <= 2) || (major == 6 && minor == 0));
#else
  return true;
#endif
}

TEST(GetOperatingSystem, NullPointersGiveZero) {
  unsigned value = 0;
  EXPECT_EQ(QnUtil_GetOperatingSystem(nullptr, &value), 0);
  EXPECT_EQ(QnUtil_GetOperatingSystem(&value, nullptr), 0);
  EXPECT_EQ(QnUtil_GetOperatingSystem(nullptr, nullptr), 0);
}

TEST(GetOperatingSystem, MatchesThePlatformsOwnAnswer) {
  unsigned major = 99, minor = 99;
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

struct FolderCase {
  const char* base;
  const char* expected;
};

class ProgPathAppData : public testing::TestWithParam<FolderCase> {};

TEST_P(ProgPathAppData, AppendsTheHostsFolders) {
  if (!caller_supplies_base_folder()) GTEST_SKIP() << "system keeps the folder itself";
  char buf[260];
  std::strcpy(buf, native(GetParam().base).c_str());
  EXPECT_EQ(QnUtil_GetProgPathAppData(buf), buf);
  EXPECT_EQ(std::string(buf), native(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    BaseFolders, ProgPathAppData,
    testing::Values(
        FolderCase{"D:\\data", "D:\\data\\Quarn Software GmbH\\Quarn +2011\\Programm"},
        FolderCase{"D:\\data\\", "D:\\data\\Quarn Software GmbH\\Quarn +2011\\Programm"},
        FolderCase{"", "Quarn Software GmbH\\Quarn +2011\\Programm"},
        // Without any separator the base is glued on, as the host composes it.
        FolderCase{"data", "dataQuarn Software GmbH\\Quarn +2011\\Programm"},
        FolderCase{"\\", "\\Quarn Software GmbH\\Quarn +2011\\Programm"}));

TEST(ProgPathAppDataLimits, NullBufferGivesNull) {
  EXPECT_EQ(QnUtil_GetProgPathAppData(nullptr), nullptr);
}

TEST(ProgPathAppDataLimits, ResultBeyondTheFolderBufferFailsAndLeavesItUnchanged) {
  if (!caller_supplies_base_folder()) GTEST_SKIP() << "system keeps the folder itself";
  // 219 + 1 + 40 characters of folder names need 261 bytes.
  char buf[260];
  std::string base = native("D:\\") + std::string(216, 'x');
  std::strcpy(buf, base.c_str());
  EXPECT_EQ(QnUtil_GetProgPathAppData(buf), nullptr);
  EXPECT_EQ(std::string(buf), base);
  // One character shorter fits exactly.
  base.pop_back();
  std::strcpy(buf, base.c_str());
  EXPECT_EQ(QnUtil_GetProgPathAppData(buf), buf);
  EXPECT_EQ(std::strlen(buf), 259u);
}

TEST(ProgPathAppDataLimits, UnterminatedBufferIsRefused) {
  char buf[260];
  std::memset(buf, 'x', sizeof buf);
  EXPECT_EQ(QnUtil_GetProgPathAppData(buf), nullptr);
}

#ifdef _WIN32

TEST(ProgPathRoamingAppData, IsTheShellsRoamingFolder) {
  char expected[MAX_PATH];
  ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, expected), S_OK);
  char buf[260] = "unchanged";
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(buf), 1);
  EXPECT_STREQ(buf, expected);
}

#else

// Sets (value non-null) or removes an environment variable for one scope.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old, had_ = true;
    if (value)
      setenv(name, value, 1);
    else
      unsetenv(name);
  }
  ~ScopedVariable() {
    if (had_)
      setenv(name_, old_.c_str(), 1);
    else
      unsetenv(name_);
  }

 private:
  const char* name_;
  std::string old_;
  bool had_ = false;
};

struct XdgCase {
  const char* data_home;
  const char* home;
  int result;
  const char* expected;
};

class ProgPathRoamingAppData : public testing::TestWithParam<XdgCase> {};

TEST_P(ProgPathRoamingAppData, FollowsTheXdgRules) {
  ScopedVariable data_home("XDG_DATA_HOME", GetParam().data_home);
  ScopedVariable home("HOME", GetParam().home);
  char buf[260] = "unchanged";
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(buf), GetParam().result);
  EXPECT_STREQ(buf, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Environment, ProgPathRoamingAppData,
    testing::Values(XdgCase{"/srv/data", "/home/u", 1, "/srv/data"},
                    XdgCase{nullptr, "/home/u", 1, "/home/u/.local/share"},
                    XdgCase{"relative/data", "/home/u", 1, "/home/u/.local/share"},
                    XdgCase{nullptr, nullptr, 0, "unchanged"},
                    XdgCase{nullptr, "", 0, "unchanged"}));

TEST(ProgPathRoamingAppDataLimits, FolderBeyondTheBufferFails) {
  const std::string long_home = "/" + std::string(250, 'h');
  ScopedVariable data_home("XDG_DATA_HOME", nullptr);
  ScopedVariable home("HOME", long_home.c_str());
  char buf[260] = "unchanged";
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(buf), 0);
  EXPECT_STREQ(buf, "unchanged");
}

#endif

TEST(ProgPathRoamingAppDataLimits, NullBufferGivesZero) {
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(nullptr), 0);
}

}  // namespace
