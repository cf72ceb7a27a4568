// Where the system tests' helper programs live: next to the test program.
#pragma once

#include <filesystem>
#include <string>

#ifdef _WIN32
#include <windows.h>
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
  return (program_directory() / name).string() + ".exe";
#else
  return (program_directory() / name).string();
#endif
}

}  // namespace system_test
