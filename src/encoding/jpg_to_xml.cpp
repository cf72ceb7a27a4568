#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>

#include "encoding/base64.h"
#include "frame/export_guard.h"
#include "platform/file_system.h"
#include "qnutil/encoding.h"

namespace {

using qnutil::encoding::base64_length;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// Size from the end position, the stream left at the start; -1 on failure
// (including files too large for the run-time's long offsets).
long file_size(std::FILE* file) {
  if (std::fseek(file, 0, SEEK_END) != 0) return -1;
  const long size = std::ftell(file);
  if (std::fseek(file, 0, SEEK_SET) != 0) return -1;
  return size;
}

// The size-only call must fail exactly where the copying call would (a
// file that cannot be read in full), so it reads everything too, but in
// small pieces: neither holding the file nor encoding it is needed.
bool reads_in_full(std::FILE* file, std::size_t size) {
  unsigned char chunk[1 << 16];
  std::size_t total = 0;
  while (total < size) {
    const std::size_t got = std::fread(chunk, 1, sizeof chunk, file);
    if (got == 0) break;
    total += got;
  }
  return total >= size;
}

// Encodes straight into the caller's buffer, all but the final character.
void copy_text_but_last(const unsigned char* bytes, std::size_t size, unsigned char* buffer) {
  if (size == 0) return;
  const std::size_t head = (size - 1) / 3 * 3;  // full groups before the last group
  char* out = reinterpret_cast<char*>(buffer);
  qnutil::encoding::encode_base64(bytes, head, out);
  char last_group[4];
  qnutil::encoding::encode_base64(bytes + head, size - head, last_group);
  for (int i = 0; i < 3; ++i) out[base64_length(head) + static_cast<std::size_t>(i)] = last_group[i];
}

int encode_file(const char* path, unsigned char* buffer, unsigned int* length, int sizeOnly) {
  const File file{path ? qnutil::platform::open_stream(path, "rb") : nullptr};
  if (!file) return 0;
  const long measured = file_size(file.get());
  if (measured < 0) return 0;
  const auto size = static_cast<std::size_t>(measured);
  if (base64_length(size) > UINT32_MAX) return 0;
  if (sizeOnly != 0) {
    if (!reads_in_full(file.get(), size)) return 0;
    if (length) *length = static_cast<unsigned int>(base64_length(size));
    return 1;
  }
  const std::unique_ptr<unsigned char[]> bytes{new (std::nothrow) unsigned char[size > 0 ? size : 1]};
  if (!bytes) return 0;
  if (std::fread(bytes.get(), 1, size, file.get()) < size) return 0;
  if (buffer) copy_text_but_last(bytes.get(), size, buffer);
  return 1;
}

}  // namespace

// The text is built straight in the caller's buffer from a buffer sized
// once, never character by character, so pictures of any size convert at
// memory speed.
extern "C" QNUTIL_API int QNUTIL_CALL jpgToXML(const char* path, unsigned char* buffer,
                                               unsigned int* length, int sizeOnly) {
  return qnutil::frame::guard_export(0, [&] { return encode_file(path, buffer, length, sizeOnly); });
}
