// The byte buffer of the file reader and writer: 30000 bytes, or, when
// that much cannot be had, half of the last attempt plus one.
#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace qnutil::env {

struct FileBuffer {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
};

inline FileBuffer allocate_file_buffer() {
  FileBuffer buffer;
  for (std::size_t size = 30000; !buffer.bytes && size > 1; size = size / 2 + (size > 2 ? 1 : 0)) {
    buffer.bytes.reset(new (std::nothrow) char[size]);
    buffer.size = size;
  }
  return buffer;
}

}  // namespace qnutil::env
