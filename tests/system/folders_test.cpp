// The system version, the host's data folders and its install location in
// the registry.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"

#ifdef _WIN32
#include <shlobj.h>
#else
#include <sys/utsname.h>
#endif

namespace {

// Test texts are written with '\\'; POSIX builds compose with '/'.
std::string native(std::string text) {
#ifndef _WIN32
  std::replace(text.begin(), text.end(), '\\', '/');
#endif
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

TEST(ProgPathAppDataLimits, NullOrUnterminatedBufferIsRefused) {
  EXPECT_EQ(QnUtil_GetProgPathAppData(nullptr), nullptr);
  EXPECT_EQ(QnUtil_GetProgPathRoamingAppData(nullptr), 0);
  char buf[260];
  std::memset(buf, 'x', sizeof buf);
  EXPECT_EQ(QnUtil_GetProgPathAppData(buf), nullptr);
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
  ScopedVariable(const char* name, const char* value) : name_(name), had_(std::getenv(name)) {
    if (had_) old_ = std::getenv(name);
    value ? setenv(name, value, 1) : unsetenv(name);
  }
  ~ScopedVariable() { had_ ? setenv(name_, old_.c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  bool had_;
  std::string old_;
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

// A folder beyond the 260-byte buffer fails.
const std::string kLongHome = "/" + std::string(250, 'h');

INSTANTIATE_TEST_SUITE_P(
    Environment, ProgPathRoamingAppData,
    testing::Values(XdgCase{"/srv/data", "/home/u", 1, "/srv/data"},
                    XdgCase{nullptr, "/home/u", 1, "/home/u/.local/share"},
                    XdgCase{"relative/data", "/home/u", 1, "/home/u/.local/share"},
                    XdgCase{nullptr, nullptr, 0, "unchanged"}, XdgCase{nullptr, "", 0, "unchanged"},
                    XdgCase{nullptr, kLongHome.c_str(), 0, "unchanged"}));

#endif

#ifdef _WIN32

// A key of the local-machine hive that exists for one test.
class TestKey {
 public:
  TestKey() {
    path_ = "Software\\QnUtilTest\\" + std::to_string(GetCurrentProcessId());
    created_ = RegCreateKeyExA(HKEY_LOCAL_MACHINE, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                               nullptr, &key_, nullptr) == ERROR_SUCCESS;
  }
  ~TestKey() {
    if (!created_) return;
    RegCloseKey(key_);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, path_.c_str());
  }
  bool created() const { return created_; }
  const char* path() const { return path_.c_str(); }
  void set(DWORD type, const std::string& bytes) {
    RegSetValueExA(key_, "InstallLocation", 0, type,
                   reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
  }

 private:
  std::string path_;
  HKEY key_ = nullptr;
  bool created_ = false;
};

struct ValueCase {
  const char* name;
  DWORD type;
  std::string stored;  // bytes as stored, terminator included where wanted
  int size;            // the caller's buffer size
  int result;
};

class InstallLocation : public testing::TestWithParam<ValueCase> {};

TEST_P(InstallLocation, CopiesWholeValuesThatFit) {
  const ValueCase& c = GetParam();
  TestKey key;
  if (!key.created()) GTEST_SKIP() << "no write access to the local-machine hive";
  key.set(c.type, c.stored);
  std::vector<char> buf(c.stored.size() + 8, '#');
  EXPECT_EQ(GetLocalMachineRegistryEntry(key.path(), c.size, buf.data()), c.result);
  const std::string expected = c.result ? c.stored : std::string(c.stored.size(), '#');
  EXPECT_EQ(std::string(buf.data(), c.stored.size()), expected);
  EXPECT_EQ(std::string(buf.data() + c.stored.size(), 8), std::string(8, '#'));
}

const std::string kPath("C:\\Quarn\0", 9);

INSTANTIATE_TEST_SUITE_P(
    Values, InstallLocation,
    testing::Values(ValueCase{"ExactSize", REG_SZ, kPath, 9, 1}, ValueCase{"OneByteShort", REG_SZ, kPath, 8, 0},
                    ValueCase{"RoomToSpare", REG_SZ, kPath, 260, 1}, ValueCase{"NegativeSize", REG_SZ, kPath, -1, 0},
                    ValueCase{"Empty", REG_BINARY, "", 100, 0},
                    ValueCase{"LargestReadable", REG_BINARY, std::string(2048, 'v'), 4096, 1},
                    ValueCase{"BeyondTheReadBuffer", REG_BINARY, std::string(2049, 'v'), 4096, 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(InstallLocationMissing, KeyOrValueMissingGivesZero) {
  char buf[64] = "";
  EXPECT_EQ(GetLocalMachineRegistryEntry("Software\\QnUtilTest\\no such key", 64, buf), 0);
  TestKey key;
  if (!key.created()) GTEST_SKIP() << "no write access to the local-machine hive";
  EXPECT_EQ(GetLocalMachineRegistryEntry(key.path(), 64, buf), 0);
}

#else

TEST(InstallLocation, PosixHasNoRegistry) {
  char buf[64] = "unchanged";
  EXPECT_EQ(GetLocalMachineRegistryEntry("Software\\Quarn", 64, buf), 0);
  EXPECT_STREQ(buf, "unchanged");
}

#endif

TEST(InstallLocationArguments, NullPointersGiveZero) {
  char buf[8];
  EXPECT_EQ(GetLocalMachineRegistryEntry(nullptr, 8, buf), 0);
  EXPECT_EQ(GetLocalMachineRegistryEntry("Software", 8, nullptr), 0);
}

}  // namespace
