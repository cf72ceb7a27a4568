// env_read and env_read_file.
#include <cstdio>
#include <string_view>

#include "env/file_buffer.h"
#include "env/parser.h"
#include "frame/export_guard.h"
#include "frame/text_format.h"

using qnutil::frame::guard_export;
using namespace qnutil::env;

namespace {

constexpr unsigned char kTextEnd = 0x1A;        // Ctrl-Z ends a text file
constexpr unsigned char kSignedEndByte = 0xFF;  // reads as -1 through a signed char

// Bytes from the caller's callback; its -1 ends the input for good.
class CallbackSource {
 public:
  CallbackSource(EnvGetChar get, void* context) : get_(get), context_(context) {}
  int next() {
    if (ended_) return kEndOfInput;
    const int c = get_(context_);
    if (c == kEndOfInput) {
      ended_ = true;
      return c;
    }
    return c & 0xFF;
  }

 private:
  EnvGetChar get_;
  void* context_;
  bool ended_ = false;
};

// Bytes of a file read through the 30000-byte buffer as the C runtime's
// text mode gives them on Windows, identically on every platform: CR LF
// becomes LF and Ctrl-Z ends the input. A 0xFF byte ends it too, since the
// byte is handed on as a signed char and equals the end marker.
class FileSource {
 public:
  FileSource(std::FILE* file, FileBuffer& buffer) : file_(file), buffer_(buffer) {}
  int next() {
    if (ended_ || (pos_ == held_ && !refill())) return kEndOfInput;
    const unsigned char b = static_cast<unsigned char>(buffer_.bytes[pos_++]);
    if (b == kTextEnd || b == kSignedEndByte) {
      ended_ = true;
      return kEndOfInput;
    }
    if (b == '\r' && (pos_ < held_ || refill()) && buffer_.bytes[pos_] == '\n') {
      ++pos_;
      return '\n';
    }
    return b;
  }

  std::string_view buffered() const {
    return ended_ ? std::string_view() : std::string_view(buffer_.bytes.get() + pos_, held_ - pos_);
  }
  void skip(std::size_t n) { pos_ += n; }
  static bool is_special(unsigned char b) {
    return b == kTextEnd || b == kSignedEndByte || b == '\r';
  }

 private:
  bool refill() {
    if (ended_) return false;
    held_ = std::fread(buffer_.bytes.get(), 1, buffer_.size, file_);
    pos_ = 0;
    ended_ = held_ == 0;
    return !ended_;
  }

  std::FILE* file_;
  FileBuffer& buffer_;
  std::size_t held_ = 0, pos_ = 0;
  bool ended_ = false;
};

template <class Source>
int read_into(EnvHandle* env, Source& source) {
  if (!valid_handle(env, __LINE__)) return ENV_ERROR;
  if (env->isSub) {
    report("can not read subenv", __LINE__);
    return ENV_ERROR;
  }
  env->top->clear();
  Parser<Source> parser(source);
  return parser.parse(*env->top);
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL env_read(EnvGetChar getChar, void* context, EnvHandle* env) {
  return guard_export(ENV_ERROR, [&] {
    if (!getChar) return ENV_ERROR;
    CallbackSource source(getChar, context);
    return read_into(env, source);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL env_read_file(const char* fileName, EnvHandle* env) {
  return guard_export(ENV_ERROR, [&] {
    std::FILE* file = fileName ? std::fopen(fileName, "rb") : nullptr;
    if (!file) {
      report(
          qnutil::frame::format_text("cann't open to read: %s", fileName ? fileName : "").c_str(),
          __LINE__);
      return ENV_ERROR;
    }
    struct Closer {
      std::FILE* f;
      ~Closer() { std::fclose(f); }
    } closer{file};
    FileBuffer buffer = allocate_file_buffer();
    if (!buffer.bytes) return ENV_ERROR;
    FileSource source(file, buffer);
    return read_into(env, source);
  });
}
