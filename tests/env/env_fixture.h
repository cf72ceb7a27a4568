// Helpers of the environment store tests: owned handles and reading and
// writing environments from and to strings.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/env.h"
#include "support/test_support.h"

namespace env_test {

using qnutil_test::MessageCapture;

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
  EnvHandle* release() { return std::exchange(handle_, nullptr); }

 private:
  EnvHandle* handle_;
};

// Bytes are handed on as signed chars, as a C caller's plain char would
// be: 0xFF arrives as -1 and ends the input.
inline int read_text(EnvHandle* env, const std::string& text) {
  struct Source {
    const std::string& text;
    std::size_t pos = 0;
  } source{text};
  return env_read(
      [](void* context) -> int {
        auto* s = static_cast<Source*>(context);
        return s->pos < s->text.size() ? static_cast<signed char>(s->text[s->pos++]) : -1;
      },
      &source, env);
}

inline std::string write_text(EnvHandle* env) {
  std::string out;
  env_write([](int ch, void* o) { static_cast<std::string*>(o)->push_back(static_cast<char>(ch)); },
            &out, env);
  return out;
}

// Stores each {section, path, text}; every put must succeed.
inline void put_all(EnvHandle* env, std::initializer_list<std::array<const char*, 3>> entries) {
  for (const auto& [section, path, text] : entries)
    ASSERT_EQ(env_put(env, section, path, text), ENV_OK) << section << " " << (path ? path : "");
}

// The data text, or "<status>" when the get fails.
inline std::string get_text(EnvHandle* env, const char* section, const char* path, int direct = 1) {
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
