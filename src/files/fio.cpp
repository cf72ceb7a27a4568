// fio_*: C streams behind a small handle, optionally with the 16-byte header
// that tells a reader the byte order the file's binary data were written in.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "files/path_pieces.h"
#include "frame/export_guard.h"
#include "platform/file_system.h"
#include "qnutil/files.h"

namespace {

constexpr char kVersionMark[] = "1.1  @mb";
constexpr char kLittleEndianMark[] = "INTEL   ";
constexpr char kBigEndianMark[] = "MOTOROLA";
constexpr std::size_t kMarkLength = 8;

// Shared stand-in for a path that could not be copied; never freed.
char kUnknownPath[] = "????";

bool exactly_one_direction(int mode) {
  const int directions = mode & (QNUTIL_FIO_READ | QNUTIL_FIO_WRITE | QNUTIL_FIO_APPEND);
  return directions == QNUTIL_FIO_READ || directions == QNUTIL_FIO_WRITE ||
         directions == QNUTIL_FIO_APPEND;
}

std::string stream_mode(int mode) {
  std::string letters = (mode & QNUTIL_FIO_READ) ? "r" : (mode & QNUTIL_FIO_WRITE) ? "w" : "a";
  if (mode & QNUTIL_FIO_UPDATE) letters += '+';
  letters += (mode & QNUTIL_FIO_TEXT) ? 't' : 'b';
  return letters;
}

char* copy_path(const std::string& path) {
  char* copy = static_cast<char*>(std::malloc(path.size() + 1));
  if (copy == nullptr) return kUnknownPath;
  std::memcpy(copy, path.c_str(), path.size() + 1);
  return copy;
}

bool contains(const char* bytes, std::size_t length, const char* mark) {
  const std::size_t mark_length = std::strlen(mark);
  for (std::size_t i = 0; i + mark_length <= length; ++i) {
    if (std::memcmp(bytes + i, mark, mark_length) == 0) return true;
  }
  return false;
}

// Either marker alone counts as a header, deliberately: files of early
// writers carry only one of them.
void read_header(QnUtilFioFile& file) {
  char mark[kMarkLength];
  const std::size_t length = std::fread(mark, 1, kMarkLength, file.stream);
  if (!contains(mark, length, "@mb") && !contains(mark, length, "1.1")) {
    std::rewind(file.stream);
    file.byteOrder = QNUTIL_FIO_NO_HEADER;
    return;
  }
  const std::size_t order_length = std::fread(mark, 1, kMarkLength, file.stream);
  if (order_length == kMarkLength && std::memcmp(mark, kBigEndianMark, kMarkLength) == 0) {
    file.byteOrder = QNUTIL_FIO_BIG_ENDIAN;
  }
}

QnUtilFioFile* open_file(const char* dir, const char* name, int mode) {
  const std::optional<std::string> whole = qnutil::files::compose_whole_path("", dir, name);
  if (!whole) return nullptr;
  const std::string& path = *whole;
  std::FILE* stream = qnutil::platform::open_stream(path.c_str(), stream_mode(mode).c_str());
  if (stream == nullptr) return nullptr;
  auto* file = static_cast<QnUtilFioFile*>(std::malloc(sizeof(QnUtilFioFile)));
  if (file == nullptr) {
    std::fclose(stream);
    return nullptr;
  }
  file->stream = stream;
  file->byteOrder = QNUTIL_FIO_LITTLE_ENDIAN;
  file->mode = mode;
  file->path = copy_path(path);
  if ((mode & QNUTIL_FIO_HEADER) && !(mode & (QNUTIL_FIO_APPEND | QNUTIL_FIO_TEXT))) {
    if (mode & QNUTIL_FIO_WRITE) {
      std::fwrite(kVersionMark, 1, kMarkLength, stream);
      std::fwrite(kLittleEndianMark, 1, kMarkLength, stream);
    } else {
      read_header(*file);
    }
  }
  return file;
}

}  // namespace

extern "C" QNUTIL_API QnUtilFioFile* QNUTIL_CALL fio_open(const char* dir, const char* name,
                                                          int mode) {
  if (!exactly_one_direction(mode)) return nullptr;
  return qnutil::frame::guard_export<QnUtilFioFile*>(nullptr,
                                                     [&] { return open_file(dir, name, mode); });
}

// A write that failed earlier, even one whose own result was ignored, left
// the stream's error indicator set: closing and flushing report it.
extern "C" QNUTIL_API int QNUTIL_CALL fio_close(QnUtilFioFile* file) {
  if (file == nullptr) return 0;
  const bool failed_before = std::ferror(file->stream) != 0;
  const int closed = std::fclose(file->stream) == 0 && !failed_before ? 0 : EOF;
  if (file->path != kUnknownPath) std::free(file->path);
  std::free(file);
  return closed == 0 ? 0 : -1;
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_flush(QnUtilFioFile* file) {
  if (file == nullptr) return -1;
  return std::fflush(file->stream) == 0 && !std::ferror(file->stream) ? 0 : -1;
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_getchar(QnUtilFioFile* file, unsigned char* out) {
  if (file == nullptr) return -1;
  const int c = std::fgetc(file->stream);
  if (out == nullptr) return c == EOF ? -1 : c;
  *out = static_cast<unsigned char>(c);
  return c == EOF ? -1 : 0;
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_putchar(QnUtilFioFile* file, char c) {
  if (file == nullptr) return -1;
  return std::fputc(static_cast<unsigned char>(c), file->stream) == EOF ? -1 : 0;
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_getstring(QnUtilFioFile* file, int max, char* buf) {
  if (file == nullptr) return -1;
  return QnUtil_GetString(file->stream, max, buf);
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_putstring(QnUtilFioFile* file, const char* text,
                                                    int width) {
  if (file == nullptr) return -1;
  return QnUtil_PutString(file->stream, text, width);
}

extern "C" QNUTIL_API int QNUTIL_CALL fio_seek(QnUtilFioFile* file, long offset, int origin) {
  if (file == nullptr) return -1;
  const int whence = origin == 0 ? SEEK_SET : origin == 1 ? SEEK_CUR : SEEK_END;
  return std::fseek(file->stream, offset, whence) == 0 ? 0 : -1;
}

extern "C" QNUTIL_API long QNUTIL_CALL fio_tell(QnUtilFioFile* file) {
  if (file == nullptr) return -1;
  return std::ftell(file->stream);
}
