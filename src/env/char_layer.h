// The reader's character layer: comments at line starts, line
// continuation (backslash, spaces, newline) and a one-byte push-back slot.
#pragma once

#include <cstddef>
#include <vector>

namespace qnutil::env {

constexpr int kEndOfInput = -1;

// Source provides int next(): the next byte (0..255) or kEndOfInput, which
// it keeps returning once reached.
template <class Source>
class CharLayer {
 public:
  explicit CharLayer(Source& source) : source_(source) {}

  int get() {
    if (slot_ != kNoSlot) {
      const int c = slot_;
      slot_ = kNoSlot;
      return c;
    }
    if (queued_ < queue_.size()) return queue_[queued_++];
    for (;;) {
      int c = raw();
      if (c != '\\') return c;
      queue_.assign(1, '\\');
      queued_ = 0;
      while ((c = raw()) == ' ') queue_.push_back(' ');
      if (c == '\n') {
        queue_.clear();
        continue;  // the continuation disappears
      }
      queue_.push_back(c);
      return queue_[queued_++];
    }
  }

  void push_back(int c) { slot_ = c; }

 private:
  static constexpr int kNoSlot = -2;

  // A ';' right after a newline (or at the very start) comments out the
  // rest of the line; the newline that ends it is delivered.
  int raw() {
    int c = source_.next();
    if (at_line_start_ && c == ';') {
      do c = source_.next();
      while (c != '\n' && c != kEndOfInput);
    }
    at_line_start_ = c == '\n';
    return c;
  }

  Source& source_;
  int slot_ = kNoSlot;
  std::vector<int> queue_;
  std::size_t queued_ = 0;
  bool at_line_start_ = true;
};

}  // namespace qnutil::env
