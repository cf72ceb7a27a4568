// Helpers shared by the test programs; they use only the public API.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"

namespace qnutil_test {

// A fresh directory below the system's temporary folder, removed again at
// the end of the test.
class ScratchDir {
 public:
  ScratchDir() {
    static std::atomic<unsigned> counter{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = std::filesystem::temp_directory_path() /
            ("qnutil-test-" + std::to_string(stamp) + "-" + std::to_string(counter++));
    std::filesystem::create_directories(path_);
  }
  ~ScratchDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // Path of `name` inside the directory, as a narrow string for the C API.
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// Captures every message box the library shows while it lives.
class MessageCapture {
 public:
  struct Box {
    std::string caption;
    std::string text;
  };

  MessageCapture() { QnUtil_SetMessageHandler(&MessageCapture::receive, this); }
  ~MessageCapture() { QnUtil_SetMessageHandler(nullptr, nullptr); }
  MessageCapture(const MessageCapture&) = delete;
  MessageCapture& operator=(const MessageCapture&) = delete;

  const std::vector<Box>& boxes() const { return boxes_; }

 private:
  static void QNUTIL_CALL receive(const char* caption, const char* text, void* user) {
    static_cast<MessageCapture*>(user)->boxes_.push_back({caption, text});
  }
  std::vector<Box> boxes_;
};

// Sets an environment variable of the process (removes it for a null value)
// and restores what it was at the end of the scope. Windows' run-time cannot
// hold an empty value: there "" removes the variable too. The run-time
// passes the change on to the process environment, where DLLs read it.
class ScopedEnvironmentVariable {
 public:
  ScopedEnvironmentVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    set(value);
  }
  ~ScopedEnvironmentVariable() { set(old_ ? old_->c_str() : nullptr); }
  ScopedEnvironmentVariable(const ScopedEnvironmentVariable&) = delete;
  ScopedEnvironmentVariable& operator=(const ScopedEnvironmentVariable&) = delete;

  void set(const char* value) {
#ifdef _WIN32
    _putenv_s(name_, value ? value : "");
#else
    value ? setenv(name_, value, 1) : unsetenv(name_);
#endif
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

#ifdef _WIN32
constexpr char kPathSeparator = '\\';
#else
constexpr char kPathSeparator = '/';
#endif

// Paths in tests are written with '/'; this is the platform's spelling.
inline std::string native_path(std::string text) {
  for (char& c : text)
    if (c == '/') c = kPathSeparator;
  return text;
}

// QnUtil_Makepath's path; a marker when it answers other than with its buffer.
inline std::string makepath(const char* base, const char* sub, const char* file) {
  char out[QNUTIL_PATH_SIZE];
  std::fill(std::begin(out), std::end(out), 'x');
  return QnUtil_Makepath(out, base, sub, file) == out ? out : "<not the output buffer>";
}

inline std::string read_file(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void write_file(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace qnutil_test
