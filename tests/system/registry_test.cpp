#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qnutil/qnutil.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

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
    testing::Values(ValueCase{"ExactSize", REG_SZ, kPath, 9, 1},
                    ValueCase{"OneByteShort", REG_SZ, kPath, 8, 0},
                    ValueCase{"RoomToSpare", REG_SZ, kPath, 260, 1},
                    ValueCase{"NegativeSize", REG_SZ, kPath, -1, 0},
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
