#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
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

// The file is read in pieces of whole three-byte groups and each piece is
// encoded straight into the caller's buffer: no buffer of the file's size,
// and the input stays in the cache while it is encoded. Unlike holding the
// whole file first, a file that shrinks or fails while it is being read
// leaves the text encoded so far in the buffer when 0 is returned; a file
// that cannot be read at all leaves the buffer untouched.
constexpr std::size_t kChunk = 3 * 128 * 1024;

char* encode(const unsigned char* bytes, std::size_t count, char* out) {
  qnutil::encoding::encode_base64(bytes, count, out);
  return out + base64_length(count);
}

// The final piece: everything but the text's last character.
void encode_but_last(const unsigned char* bytes, std::size_t count, char* out) {
  const std::size_t head = (count - 1) / 3 * 3;  // whole groups before the last group
  out = encode(bytes, head, out);
  char last_group[4];
  qnutil::encoding::encode_base64(bytes + head, count - head, last_group);
  std::memcpy(out, last_group, 3);
}

// Reads all `size` bytes of the file and encodes them into `buffer` unless
// it is null. False when fewer bytes arrive or memory runs out.
bool read_and_encode(std::FILE* file, std::size_t size, unsigned char* buffer) {
  const std::unique_ptr<unsigned char[]> chunk{new (std::nothrow) unsigned char[kChunk]};
  if (!chunk) return false;
  char* out = reinterpret_cast<char*>(buffer);
  for (std::size_t done = 0; done < size;) {
    const std::size_t wanted = std::min(kChunk, size - done);
    if (std::fread(chunk.get(), 1, wanted, file) < wanted) return false;
    done += wanted;
    if (!out) continue;
    if (done < size) {
      out = encode(chunk.get(), wanted, out);
    } else {
      encode_but_last(chunk.get(), wanted, out);
    }
  }
  return true;
}

int encode_file(const char* path, unsigned char* buffer, unsigned int* length, int sizeOnly) {
  const File file{path ? qnutil::platform::open_stream(path, "rb") : nullptr};
  if (!file) return 0;
  const long measured = file_size(file.get());
  if (measured < 0) return 0;
  const auto size = static_cast<std::size_t>(measured);
  if (base64_length(size) > UINT32_MAX) return 0;
  // The size-only call reads the file too, so that it fails exactly where
  // the copying call would.
  if (!read_and_encode(file.get(), size, sizeOnly != 0 ? nullptr : buffer)) return 0;
  if (sizeOnly != 0 && length) *length = static_cast<unsigned int>(base64_length(size));
  return 1;
}

}  // namespace

// The text is built straight in the caller's buffer, never character by
// character, so pictures of any size convert at memory speed.
extern "C" QNUTIL_API int QNUTIL_CALL jpgToXML(const char* path, unsigned char* buffer,
                                               unsigned int* length, int sizeOnly) {
  return qnutil::frame::guard_export(0,
                                     [&] { return encode_file(path, buffer, length, sizeOnly); });
}
