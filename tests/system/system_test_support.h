// Helpers of the system tests: where the test programs live, and the
// platform's own answers to compare the library's with.
#pragma once

#include <filesystem>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace system_test {

inline std::filesystem::path program_directory() {
#ifdef _WIN32
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).parent_path();
#else
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
#endif
}

inline std::string sibling_program(const char* name) {
#ifdef _WIN32
  return (program_directory() / (std::string(name) + ".exe")).string();
#else
  return (program_directory() / name).string();
#endif
}

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

}  // namespace system_test
