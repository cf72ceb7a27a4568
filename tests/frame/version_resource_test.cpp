// The DLL carries a version resource with the library's version.
#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "qnutil/qnutil.h"

TEST(VersionResource, FileAndProductVersionMatchTheLibrary) {
  HMODULE module = nullptr;
  ASSERT_TRUE(GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCSTR>(&QnUtil_GetVersion), &module));
  char path[MAX_PATH];
  ASSERT_GT(GetModuleFileNameA(module, path, MAX_PATH), 0u);
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeA(path, &ignored);
  ASSERT_GT(size, 0u);
  std::vector<char> data(size);
  ASSERT_TRUE(GetFileVersionInfoA(path, 0, size, data.data()));
  VS_FIXEDFILEINFO* info = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueA(data.data(), "\\", reinterpret_cast<void**>(&info), &length));
  EXPECT_EQ(HIWORD(info->dwFileVersionMS), QNUTIL_VERSION_MAJOR);
  EXPECT_EQ(LOWORD(info->dwFileVersionMS), QNUTIL_VERSION_MINOR);
  EXPECT_EQ(HIWORD(info->dwFileVersionLS), QNUTIL_VERSION_PATCH);
  EXPECT_EQ(info->dwProductVersionMS, info->dwFileVersionMS);

  char* description = nullptr;
  ASSERT_TRUE(VerQueryValueA(data.data(), "\\StringFileInfo\\040904E4\\FileDescription",
                             reinterpret_cast<void**>(&description), &length));
  EXPECT_STREQ(description, "QnUtil shared utility library");
}
