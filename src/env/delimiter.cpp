#include "env/delimiter.h"

#include <atomic>
#include <cstring>
#include <mutex>

#include "env/per_thread.h"

namespace qnutil::env {
namespace {

constexpr std::size_t kMaxDelimiter = 254;

std::mutex delimiter_lock;
std::string shared_delimiter = "@";
std::atomic<unsigned> delimiter_generation{1};

struct ThreadCopy {
  unsigned generation = 0;
  std::string text;
  bool separates[256] = {};
};

}  // namespace

DelimiterView delimiter() {
  ThreadCopy& copy = per_thread<ThreadCopy>();
  const unsigned generation = delimiter_generation.load(std::memory_order_acquire);
  if (copy.generation != generation) {
    std::lock_guard guard(delimiter_lock);
    copy.text = shared_delimiter;
    copy.generation = delimiter_generation.load(std::memory_order_relaxed);
    std::memset(copy.separates, 0, sizeof copy.separates);
    for (unsigned char c : copy.text) copy.separates[c] = true;
  }
  return {copy.text, copy.separates};
}

std::string replace_delimiter(const char* text) {
  std::lock_guard guard(delimiter_lock);
  std::string previous = shared_delimiter;
  if (text && *text) {
    shared_delimiter.assign(text, strnlen(text, kMaxDelimiter));
    delimiter_generation.fetch_add(1, std::memory_order_release);
  }
  return previous;
}

}  // namespace qnutil::env
