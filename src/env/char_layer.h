// The reader's character layer: comments at line starts, line
// continuation (backslash, spaces, newline) and a one-byte push-back slot.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qnutil::env {

constexpr int kEndOfInput = -1;

// Source provides int next(): the next byte (0..255) or kEndOfInput, which
// it keeps returning once reached. A buffered source also provides
// buffered() (the bytes held ahead), skip(n) and is_special(byte) (bytes
// its next() would not hand on unchanged).
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

  // Appends to `out` the run of bytes ahead that need none of this layer's
  // rules (no backslash, line end, terminator or byte the source treats
  // specially) straight from a buffered source; returns how many. Sources
  // without a buffer take the per-character path only.
  std::size_t take_plain(std::string& out, int terminator) {
    if constexpr (requires { source_.buffered(); }) {
      if (slot_ != kNoSlot || queued_ < queue_.size() || at_line_start_) return 0;
      static const PlainBytes plain(Source::is_special);
      const std::string_view ahead = source_.buffered();
      std::size_t n = 0;
      while (n < ahead.size() && plain.is_plain[static_cast<unsigned char>(ahead[n])] &&
             ahead[n] != terminator)
        ++n;
      out.append(ahead.data(), n);
      source_.skip(n);
      return n;
    } else {
      (void)out;
      (void)terminator;
      return 0;
    }
  }

 private:
  static constexpr int kNoSlot = -2;

  struct PlainBytes {
    explicit PlainBytes(bool (*is_special)(unsigned char)) {
      for (int b = 0; b < 256; ++b)
        is_plain[b] =
            !is_special(static_cast<unsigned char>(b)) && b != '\\' && b != '\n' && b != 0;
    }
    bool is_plain[256];
  };

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
