// Where a test program's helper programs and fixtures live: next to it.
#pragma once

#include <filesystem>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

namespace qnutil_test {

inline std::filesystem::path own_path() {
#ifdef _WIN32
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return path;
#else
  return std::filesystem::read_symlink("/proc/self/exe");
#endif
}

// `file` in the test program's folder.
inline std::string sibling(const char* file) { return (own_path().parent_path() / file).string(); }

}  // namespace qnutil_test
