// Arbitrary bytes as path pieces (split at NUL), as a stream of text fields
// and as the first bytes of an fio file.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"

namespace {

void compose(const std::vector<std::string>& pieces) {
  char out[QNUTIL_PATH_SIZE];
  char drive[QNUTIL_DRIVE_SIZE], dir[QNUTIL_FOLDER_SIZE], name[QNUTIL_NAME_SIZE];
  auto piece = [&](std::size_t i) { return i < pieces.size() ? pieces[i].c_str() : nullptr; };
  QnUtil_Makepath(out, piece(0), piece(1), piece(2));
  for (const std::string& text : pieces) {
    QnUtil_Divide(text.c_str(), drive, dir, name);
    QnUtil_GetExtensionPos(text.c_str());
  }
}

void read_fields(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return;
  FILE* stream = fmemopen(const_cast<std::uint8_t*>(data), size, "rb");
  if (stream == nullptr) return;
  const int max = data[0] % 40 + 1;
  std::vector<char> buf(max + 1);
  // Every call consumes at least one byte or ends; the pushed-back 0xFF
  // after a final carriage return adds one more call.
  for (std::size_t calls = 0; calls < size + 4; ++calls) {
    if (QnUtil_GetString(stream, max, buf.data()) != 0) break;
  }
  std::fclose(stream);
}

void open_with_header(const std::uint8_t* data, std::size_t size) {
  static const std::string folder = "/tmp";
  static const std::string name = "qnutil-fuzz-fio-" + std::to_string(getpid()) + ".bin";
  const std::string path = folder + "/" + name;
  FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return;
  // The header decides on the first 16 bytes; a short tail is enough.
  std::fwrite(data, 1, size < 64 ? size : 64, file);
  std::fclose(file);
  if (QnUtilFioFile* fio =
          fio_open(folder.c_str(), name.c_str(), QNUTIL_FIO_READ | QNUTIL_FIO_HEADER)) {
    unsigned char byte;
    while (fio_getchar(fio, &byte) == 0) {
    }
    fio_close(fio);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> pieces(1);
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == 0) {
      pieces.emplace_back();
    } else {
      pieces.back().push_back(static_cast<char>(data[i]));
    }
  }
  compose(pieces);
  read_fields(data, size);
  open_with_header(data, size);
  return 0;
}
