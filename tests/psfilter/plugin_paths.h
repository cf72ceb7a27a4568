// Where the test plug-ins are: next to the test program.
#pragma once

#include <windows.h>

#include <string>

namespace qnutil_test {

inline std::string test_program_path() {
  char path[MAX_PATH] = {};
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return path;
}

inline std::string plugin_path(const std::string& name) {
  const std::string program = test_program_path();
  return program.substr(0, program.find_last_of("\\/") + 1) + "psfilter-plugins\\" + name + ".8bf";
}

}  // namespace qnutil_test
