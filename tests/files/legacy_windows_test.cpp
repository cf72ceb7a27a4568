// The program-data folder on older Windows versions. Wine reports the
// version configured for a program name under
// HKCU\Software\Wine\AppDefaults\<name>\Version, so this program sets that
// for itself and runs itself once per version; each run checks the folder
// rule against what the system says. Elsewhere the key is ignored and the
// runs that need another version skip.
#include <gtest/gtest.h>
#include <process.h>
#include <shlobj.h>
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "qnutil/qnutil.h"
#include "support/own_path.h"

namespace {

const char kChildFlag[] = "--as-windows";

struct Version {
  const char* wine_name;
  unsigned major;
  unsigned minor;
  bool common_folder;  // the folder rule's branch
};

const Version kVersions[] = {{"win2k", 5, 0, true}, {"winxp", 5, 1, true}, {"win2003", 5, 2, true},
                             {"vista", 6, 0, true}, {"win7", 6, 1, false}, {"win8", 6, 2, false}};

Version g_expected;

bool running_under_wine() {
  const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
  return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

TEST(LegacyWindows, ProgramDataFolderFollowsTheVersion) {
  unsigned major = 0, minor = 0;
  ASSERT_EQ(QnUtil_GetOperatingSystem(&major, &minor), 1);
  if (major != g_expected.major || minor != g_expected.minor) {
    // Wine honours the configured version; real Windows ignores it.
    ASSERT_FALSE(running_under_wine()) << "Wine reports " << major << "." << minor;
    GTEST_SKIP() << "system reports " << major << "." << minor << ", not the configured version";
  }
  char buf[260] = "D:\\data";
  ASSERT_EQ(QnUtil_GetProgPathAppData(buf), buf);
  std::string expected = "D:\\data";
  if (g_expected.common_folder) {
    char common[MAX_PATH];
    ASSERT_EQ(SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, common),
              S_OK);
    expected = common;
  }
  EXPECT_EQ(std::string(buf), expected + "\\Quarn Software GmbH\\Quarn +2011\\Programm");
}

std::string app_defaults_key() {
  return "Software\\Wine\\AppDefaults\\" + qnutil_test::own_path().filename().string();
}

bool configure_version(const char* wine_name) {
  return RegSetKeyValueA(HKEY_CURRENT_USER, app_defaults_key().c_str(), "Version", REG_SZ,
                         wine_name,
                         static_cast<DWORD>(std::strlen(wine_name) + 1)) == ERROR_SUCCESS;
}

int run_child(const Version& version) {
  const std::string path = qnutil_test::own_path().string();
  const std::string quoted = "\"" + path + "\"";
  return static_cast<int>(
      _spawnl(_P_WAIT, path.c_str(), quoted.c_str(), kChildFlag, version.wine_name, nullptr));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc >= 3 && std::strcmp(argv[1], kChildFlag) == 0) {
    for (const Version& version : kVersions)
      if (std::strcmp(version.wine_name, argv[2]) == 0) g_expected = version;
    std::printf("-- as %s (%u.%u)\n", argv[2], g_expected.major, g_expected.minor);
    std::fflush(stdout);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
  }
  int failures = 0;
  for (const Version& version : kVersions) {
    if (!configure_version(version.wine_name)) {
      std::fprintf(stderr, "cannot configure the version %s\n", version.wine_name);
      return 1;
    }
    if (run_child(version) != 0) ++failures;
  }
  RegDeleteTreeA(HKEY_CURRENT_USER, app_defaults_key().c_str());
  return failures == 0 ? 0 : 1;
}
