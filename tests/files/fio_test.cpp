// fio files (the byte-order header, fields, null handles, failed writes)
// and the fixed-width text fields of a C stream below them.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"
#ifndef _WIN32
#include "support/faults.h"
#endif

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;

class Fio : public ::testing::Test {
 protected:
  QnUtilFioFile* open(int mode, const char* name = "data.bin") {
    return fio_open(dir_.path().string().c_str(), name, mode);
  }
  std::string contents(const char* name = "data.bin") { return read_file(dir_.file(name)); }
  void put(const std::string& bytes) { qnutil_test::write_file(dir_.file("data.bin"), bytes); }

  ScratchDir dir_;
};

// Written with the header, read back past it as fields; the handle keeps
// the composed path.
TEST_F(Fio, HeaderAndFieldsRoundTrip) {
  QnUtilFioFile* file = open(QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->mode, QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  EXPECT_EQ(file->path, qnutil_test::makepath("", dir_.path().string().c_str(), "data.bin"));
  EXPECT_EQ(fio_putstring(file, "name", 6), 0);
  EXPECT_EQ(fio_putchar(file, '\n'), 0);
  EXPECT_EQ(fio_flush(file), 0);
  EXPECT_EQ(fio_close(file), 0);
  EXPECT_EQ(contents(), "1.1  @mbINTEL   name  \n");

  file = open(QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->byteOrder, QNUTIL_FIO_LITTLE_ENDIAN);
  char buf[16];
  EXPECT_EQ(fio_getstring(file, 15, buf), 0);
  EXPECT_STREQ(buf, "name  ");
  EXPECT_EQ(fio_getstring(file, 15, buf), -1);
  EXPECT_EQ(fio_close(file), 0);
}

TEST_F(Fio, DetectsTheHeader) {
  const struct {
    const char* bytes;
    int byte_order;
    int first_byte;  // what the first read returns
  } cases[] = {{"1.1  @mbMOTOROLAz", QNUTIL_FIO_BIG_ENDIAN, 'z'},
               // Either marker alone, anywhere in the first 8 bytes.
               {"xx1.1xxxMOTOROLA!", QNUTIL_FIO_BIG_ENDIAN, '!'},
               {"xxxxx@mbINTEL   !", QNUTIL_FIO_LITTLE_ENDIAN, '!'},
               {"plain binary data", QNUTIL_FIO_NO_HEADER, 'p'},
               // Short files are judged by what could be read.
               {"1.1  @mbMOTOR", QNUTIL_FIO_LITTLE_ENDIAN, -1},
               {"", QNUTIL_FIO_NO_HEADER, -1}};
  for (const auto& c : cases) {
    put(c.bytes);
    QnUtilFioFile* file = open(QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
    ASSERT_NE(file, nullptr) << c.bytes;
    EXPECT_EQ(file->byteOrder, c.byte_order) << c.bytes;
    EXPECT_EQ(fio_getchar(file, nullptr), c.first_byte) << c.bytes;
    fio_close(file);
  }
}

TEST(FioNullHandle, EveryCallFails) {
  char buf[4];
  unsigned char byte;
  EXPECT_EQ(fio_close(nullptr), 0);
  for (int result : {fio_flush(nullptr), fio_getchar(nullptr, &byte), fio_putchar(nullptr, 'x'),
                     fio_getstring(nullptr, 3, buf), fio_putstring(nullptr, "x", 1),
                     fio_seek(nullptr, 0, 0), static_cast<int>(fio_tell(nullptr))})
    EXPECT_EQ(result, -1);
}

// A stream over `bytes` in a scratch file, read from the start.
struct StreamFile {
  explicit StreamFile(const std::string& bytes) : stream(std::fopen(dir.file("s").c_str(), "w+b")) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::rewind(stream);
  }
  ~StreamFile() { std::fclose(stream); }
  ScratchDir dir;
  FILE* stream;
};

using namespace std::string_literals;

TEST(GetString, ReadsSuccessiveFields) {
  const struct {
    std::string input;
    int max;
    std::vector<std::pair<int, std::string>> fields;  // results of successive calls
  } cases[] = {{"", 10, {{-1, ""}}},
               {"abc\ndef", 10, {{0, "abc"}, {0, "def"}, {-1, ""}}},
               // The line feed after a carriage return is kept, once.
               {"abc\r\ndef\r\n", 10, {{0, "abc\n"}, {0, "def\n"}, {-1, ""}}},
               // A carriage return at the end pushes back 0xFF.
               {"ab\r", 10, {{0, "ab"}, {0, "\xFF"}, {-1, ""}}},
               {"ab\r\0cd"s, 10, {{0, "ab"}, {0, "cd"}, {-1, ""}}},
               {"abcdefg\n", 3, {{0, "abc"}, {0, "def"}, {0, "g"}, {-1, ""}}},
               {"\n\n", 5, {{0, ""}, {0, ""}, {-1, ""}}}};
  for (const auto& c : cases) {
    StreamFile stream(c.input);
    for (const auto& [result, text] : c.fields) {
      std::vector<char> buf(c.max + 1, '#');
      EXPECT_EQ(QnUtil_GetString(stream.stream, c.max, buf.data()), result) << c.input;
      EXPECT_EQ(std::string(buf.data()), text) << c.input;
    }
  }
}

}  // namespace

#ifndef _WIN32

// A buffered write that failed (a full disk) is reported by fio_flush and
// fio_close although the writes' own results were ignored.
TEST_F(Fio, FailedBufferedWritesAreReportedAtFlushAndClose) {
  for (const bool flush_first : {false, true}) {
    const int result = qnutil_test::run_with_file_limit(100, [&] {
      QnUtilFioFile* file = open(QNUTIL_FIO_WRITE);
      for (int i = 0; i < 5000; ++i) fio_putchar(file, 'x');
      const int flushed = flush_first ? fio_flush(file) : -1;
      return (flushed == -1 ? 1 : 0) + (fio_close(file) == -1 ? 2 : 0);
    });
    EXPECT_EQ(result, 3) << flush_first;
  }
  QnUtilFioFile* file = open(QNUTIL_FIO_WRITE);
  fio_putchar(file, 'x');
  EXPECT_EQ(fio_flush(file), 0);
  EXPECT_EQ(fio_close(file), 0);
}
#endif
