// env_write and env_write_file.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "env/file_buffer.h"
#include "env/handle.h"
#include "frame/export_guard.h"
#include "platform/file_replacement.h"
#include "platform/file_system.h"

using namespace qnutil::env;

namespace {

// A line breaks before every character whose (level + index) is a multiple
// of this.
constexpr int kLineWidth = 60;

class CallbackSink {
 public:
  CallbackSink(EnvPutChar put, void* context) : put_(put), context_(context) {}
  void write(const char* bytes, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) put_(static_cast<unsigned char>(bytes[i]), context_);
  }

 private:
  EnvPutChar put_;
  void* context_;
};

// Collects bytes in the file buffer and writes it to the replacement file
// whenever it is full, each newline as the platform's text line end.
class FileSink {
 public:
  FileSink(qnutil::platform::FileReplacement& file, FileBuffer& buffer)
      : file_(file), buffer_(buffer) {}
  void write(const char* bytes, std::size_t n) {
    if (kNewlineOnly) return put(bytes, n);
    while (n) {
      const char* newline = static_cast<const char*>(std::memchr(bytes, '\n', n));
      const std::size_t run = newline ? static_cast<std::size_t>(newline - bytes) : n;
      put(bytes, run);
      if (!newline) return;
      put(qnutil::platform::kTextLineEnd, std::strlen(qnutil::platform::kTextLineEnd));
      bytes += run + 1;
      n -= run + 1;
    }
  }
  void flush() {
    file_.write(buffer_.bytes.get(), held_);
    held_ = 0;
  }

 private:
  static inline const bool kNewlineOnly = std::strcmp(qnutil::platform::kTextLineEnd, "\n") == 0;

  void put(const char* bytes, std::size_t n) {
    while (n) {
      if (held_ == buffer_.size) flush();
      const std::size_t take = std::min(n, buffer_.size - held_);
      std::memcpy(buffer_.bytes.get() + held_, bytes, take);
      held_ += take;
      bytes += take;
      n -= take;
    }
  }
  qnutil::platform::FileReplacement& file_;
  FileBuffer& buffer_;
  std::size_t held_ = 0;
};

template <class Sink>
class Writer {
 public:
  explicit Writer(Sink& sink) : sink_(sink) {}

  void write_sections(const ElementList& top) {
    for (const Element* section = top.first; section; section = section->next)
      write_element(section, true);
  }

 private:
  struct Open {
    const Element* next;
    bool closes;  // a nested block ends with "}", a section with nothing
  };

  // Iterative depth first, so that any nesting depth is written without
  // deep recursion.
  void write_element(const Element* root, bool section_form) {
    std::vector<Open> open;
    auto enter = [&](const Element* e, bool as_section) {
      if (e->kind == Kind::external) return;
      line_.clear();
      if (as_section) {
        line_ += '[';
        line_ += e->name();
        line_ += ']';
      } else {
        line_ += e->name();
        line_ += " =";
      }
      if (e->kind == Kind::data) {
        line_ += e->text_or_empty();
        write_line();
        return;
      }
      if (!as_section) line_ += '{';
      write_line();
      level_ += 2;
      open.push_back({e->value.list ? e->value.list->first : nullptr, !as_section});
    };
    enter(root, section_form);
    while (!open.empty()) {
      Open& top = open.back();
      if (const Element* e = top.next) {
        top.next = e->next;
        enter(e, false);
        continue;
      }
      const bool closes = top.closes;
      open.pop_back();
      level_ -= 2;
      if (closes) {
        line_.assign(1, '}');
        write_line();
      }
    }
  }

  void write_line() {
    indent_.assign(static_cast<std::size_t>(level_ - 1), ' ');
    sink_.write(indent_.data(), indent_.size());
    std::size_t i = 0;
    const std::size_t n = line_.size();
    // First index i where (level + i) is a multiple of the width, then
    // every width characters further.
    std::size_t brk = static_cast<std::size_t>((kLineWidth - level_ % kLineWidth) % kLineWidth);
    while (i < n) {
      if (i == brk) {
        sink_.write("\\\n", 2);
        brk += kLineWidth;
      }
      const std::size_t stop = std::min(n, brk);
      sink_.write(line_.data() + i, stop - i);
      i = stop;
    }
    sink_.write("\n", 1);
  }

  Sink& sink_;
  int level_ = 1;
  std::string line_, indent_;
};

template <class Sink>
void write_env(EnvHandle* env, Sink& sink) {
  Writer<Sink> writer(sink);
  writer.write_sections(*env->top);
}

bool writable(EnvHandle* env) {
  if (!env) return false;
  if (env->isSub) report("can not write subenv", __LINE__);
  return !env->isSub;
}

}  // namespace

extern "C" QNUTIL_API void QNUTIL_CALL env_write(EnvPutChar putChar, void* context,
                                                 EnvHandle* env) {
  qnutil::frame::guard_export_void([&] {
    if (!putChar || !writable(env)) return;
    CallbackSink sink(putChar, context);
    write_env(env, sink);
  });
}

// Text mode: each newline becomes the platform's line end. The new file
// replaces the old one only when it was written whole: a write that fails
// (a full disk) leaves the old file as it was. Such failures stay
// unreported, as the sink's write errors always were; a file that cannot
// be opened gives the message.
extern "C" QNUTIL_API void QNUTIL_CALL env_write_file(const char* fileName, EnvHandle* env) {
  qnutil::frame::guard_export_void([&] {
    if (!writable(env)) return;
    std::optional<qnutil::platform::FileReplacement> file;
    if (fileName) file.emplace(fileName);
    if (!file || !file->opened()) {
      report("cann't open to write:", __LINE__);
      return;
    }
    FileBuffer buffer = allocate_file_buffer();
    if (!buffer.bytes) return;
    FileSink sink(*file, buffer);
    write_env(env, sink);
    sink.flush();
    file->commit();
  });
}
