#include "failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace qnutil_tool {

int fail(const char* command, const std::string& subject, const std::string& reason) {
  std::fprintf(stderr, "qnutil %s: %s: %s\n", command, subject.c_str(), reason.c_str());
  return 1;
}

std::string read_problem(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return "is a folder";
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (!file) return std::strerror(errno);
  std::fclose(file);
  return "";
}

std::string write_problem(const std::string& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path folder = fs::path(path).parent_path();
  if (folder.empty()) folder = ".";
  if (!fs::is_directory(folder, error)) return "folder " + folder.string() + " does not exist";
  if (fs::is_directory(path, error)) return "is a folder";
  if (fs::exists(path, error)) {
    std::FILE* file = std::fopen(path.c_str(), "r+b");
    if (!file) return std::strerror(errno);
    std::fclose(file);
  }
  return "the file could not be written whole (disk full?); it was left as it was";
}

}  // namespace qnutil_tool
