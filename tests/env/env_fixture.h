// Helpers of the environment store tests: owned handles and reading and
// writing environments from and to strings.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qnutil/env.h"
#include "support/test_support.h"

namespace env_test {

// A root environment closed at the end of the test.
class Env {
 public:
  explicit Env(long id = 1, EnvHandle* fallback = nullptr) : handle_(env_open(id, fallback)) {}
  ~Env() {
    if (handle_) env_close(handle_, 0);
  }
  Env(const Env&) = delete;
  Env& operator=(const Env&) = delete;
  operator EnvHandle*() const { return handle_; }
  EnvHandle* release() {
    EnvHandle* h = handle_;
    handle_ = nullptr;
    return h;
  }

 private:
  EnvHandle* handle_;
};

struct StringSource {
  std::string text;
  std::size_t pos = 0;
};

inline int QNUTIL_CALL next_char(void* context) {
  auto* source = static_cast<StringSource*>(context);
  if (source->pos >= source->text.size()) return -1;
  return static_cast<signed char>(source->text[source->pos++]);
}

inline int read_text(EnvHandle* env, const std::string& text) {
  StringSource source{text};
  return env_read(next_char, &source, env);
}

inline void QNUTIL_CALL append_char(int ch, void* context) {
  static_cast<std::string*>(context)->push_back(static_cast<char>(ch));
}

inline std::string write_text(EnvHandle* env) {
  std::string out;
  env_write(append_char, &out, env);
  return out;
}

inline std::string get_text(EnvHandle* env, const char* section, const char* path,
                            int direct = 1) {
  char buf[4096];
  const int status = env_get(env, section, path, direct, sizeof buf, buf);
  return status >= 0 ? std::string(buf) : "<" + std::to_string(status) + ">";
}

// Every message box's text, in order.
inline std::vector<std::string> texts(const qnutil_test::MessageCapture& capture) {
  std::vector<std::string> all;
  for (const auto& box : capture.boxes()) all.push_back(box.text);
  return all;
}

}  // namespace env_test
