// fio files (modes, the byte-order header, bytes, fields and seeking) and
// the fixed-width text fields of a C stream below them.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

constexpr char kHeader[] = "1.1  @mbINTEL   ";

class Fio : public ::testing::Test {
 protected:
  QnUtilFioFile* open(int mode, const char* name = "data.bin") {
    return fio_open(dir_.path().string().c_str(), name, mode);
  }
  std::string contents(const char* name = "data.bin") { return read_file(dir_.file(name)); }
  void put(const std::string& bytes) { write_file(dir_.file("data.bin"), bytes); }

  ScratchDir dir_;
};

TEST_F(Fio, NeedsExactlyOneDirectionAndAnExistingFileToRead) {
  EXPECT_EQ(open(QNUTIL_FIO_READ), nullptr);
  put("x");
  for (int mode : {0, 3, 5, 6, 7, QNUTIL_FIO_UPDATE, QNUTIL_FIO_TEXT | QNUTIL_FIO_HEADER}) {
    EXPECT_EQ(open(mode), nullptr) << mode;
  }
}

// Written with the header, read back past it as fields; the handle keeps
// the composed path.
TEST_F(Fio, HeaderAndFieldsRoundTrip) {
  QnUtilFioFile* file = open(QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->mode, QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  char expected_path[QNUTIL_PATH_SIZE];
  QnUtil_Makepath(expected_path, "", dir_.path().string().c_str(), "data.bin");
  EXPECT_STREQ(file->path, expected_path);
  EXPECT_EQ(fio_putstring(file, "name", 6), 0);
  EXPECT_EQ(fio_putchar(file, '\n'), 0);
  EXPECT_EQ(fio_flush(file), 0);
  EXPECT_EQ(fio_close(file), 0);
  EXPECT_EQ(contents(), std::string(kHeader) + "name  \n");

  file = open(QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->byteOrder, QNUTIL_FIO_LITTLE_ENDIAN);
  char buf[16];
  EXPECT_EQ(fio_getstring(file, 15, buf), 0);
  EXPECT_STREQ(buf, "name  ");
  EXPECT_EQ(fio_getstring(file, 15, buf), -1);
  EXPECT_EQ(fio_close(file), 0);
}

struct HeaderCase {
  std::string bytes;
  int byte_order;
  int first_byte;  // what the first read returns
};

class FioHeader : public Fio, public ::testing::WithParamInterface<HeaderCase> {};

TEST_P(FioHeader, DetectsTheHeader) {
  put(GetParam().bytes);
  QnUtilFioFile* file = open(QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->byteOrder, GetParam().byte_order);
  EXPECT_EQ(fio_getchar(file, nullptr), GetParam().first_byte);
  fio_close(file);
}

INSTANTIATE_TEST_SUITE_P(
    Headers, FioHeader,
    ::testing::Values(HeaderCase{"1.1  @mbMOTOROLAz", QNUTIL_FIO_BIG_ENDIAN, 'z'},
                      HeaderCase{"1.1  @mbmotorolaz", QNUTIL_FIO_LITTLE_ENDIAN, 'z'},
                      // Either marker alone, anywhere in the first 8 bytes.
                      HeaderCase{"xx1.1xxxMOTOROLA!", QNUTIL_FIO_BIG_ENDIAN, '!'},
                      HeaderCase{"xxxxx@mbINTEL   !", QNUTIL_FIO_LITTLE_ENDIAN, '!'},
                      HeaderCase{"plain binary data", QNUTIL_FIO_NO_HEADER, 'p'},
                      HeaderCase{"1.", QNUTIL_FIO_NO_HEADER, '1'},
                      // Short files are judged by what could be read.
                      HeaderCase{"1.1", QNUTIL_FIO_LITTLE_ENDIAN, -1},
                      HeaderCase{"1.1  @mbMOTOR", QNUTIL_FIO_LITTLE_ENDIAN, -1},
                      HeaderCase{"", QNUTIL_FIO_NO_HEADER, -1}));

TEST_F(Fio, AppendAndTextModesIgnoreTheHeader) {
  put("1.1  @mbMOTOROLA");
  QnUtilFioFile* file = open(QNUTIL_FIO_READ | QNUTIL_FIO_TEXT | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->byteOrder, QNUTIL_FIO_LITTLE_ENDIAN);
  EXPECT_EQ(fio_getchar(file, nullptr), '1');
  fio_close(file);

  file = open(QNUTIL_FIO_APPEND | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  fio_putchar(file, '+');
  fio_close(file);
  EXPECT_EQ(contents(), "1.1  @mbMOTOROLA+");

  file = open(QNUTIL_FIO_WRITE | QNUTIL_FIO_TEXT | QNUTIL_FIO_HEADER, "text.txt");
  ASSERT_NE(file, nullptr);
  fio_putchar(file, 'x');
  fio_close(file);
  EXPECT_EQ(contents("text.txt"), "x");
}

TEST_F(Fio, GetcharReportsTheEnd) {
  put("\xC8");
  QnUtilFioFile* file = open(QNUTIL_FIO_READ);
  ASSERT_NE(file, nullptr);
  unsigned char byte = 0;
  EXPECT_EQ(fio_getchar(file, &byte), 0);
  EXPECT_EQ(byte, 0xC8);
  EXPECT_EQ(fio_getchar(file, &byte), -1);
  EXPECT_EQ(byte, 0xFF);
  EXPECT_EQ(fio_getchar(file, nullptr), -1);
  fio_close(file);
}

TEST_F(Fio, SeeksFromEachOrigin) {
  put("0123456789");
  QnUtilFioFile* file = open(QNUTIL_FIO_READ | QNUTIL_FIO_UPDATE);
  ASSERT_NE(file, nullptr);
  struct Step {
    long offset;
    int origin;
    long position;
  };
  for (const Step& step : {Step{4, 0, 4}, Step{2, 1, 6}, Step{0, 2, 10}, Step{-3, 2, 7},
                           Step{0, 7, 10}, Step{-1, -1, 9}, Step{0, 0, 0}}) {
    EXPECT_EQ(fio_seek(file, step.offset, step.origin), 0);
    EXPECT_EQ(fio_tell(file), step.position) << step.offset << " " << step.origin;
  }
  EXPECT_EQ(fio_seek(file, -5, 0), -1);
  fio_close(file);
}

TEST(FioNullHandle, EveryCallFails) {
  char buf[4];
  unsigned char byte;
  EXPECT_EQ(fio_close(nullptr), 0);
  EXPECT_EQ(fio_flush(nullptr), -1);
  EXPECT_EQ(fio_getchar(nullptr, &byte), -1);
  EXPECT_EQ(fio_putchar(nullptr, 'x'), -1);
  EXPECT_EQ(fio_getstring(nullptr, 3, buf), -1);
  EXPECT_EQ(fio_putstring(nullptr, "x", 1), -1);
  EXPECT_EQ(fio_seek(nullptr, 0, 0), -1);
  EXPECT_EQ(fio_tell(nullptr), -1);
}

// A stream over `bytes` in a scratch file, read from the start.
struct StreamFile {
  explicit StreamFile(const std::string& bytes) : stream(std::fopen(dir.file("s").c_str(), "w+b")) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::rewind(stream);
  }
  ~StreamFile() { std::fclose(stream); }
  std::string contents() {
    std::fflush(stream);
    return read_file(dir.file("s"));
  }
  ScratchDir dir;
  FILE* stream;
};

struct Field {
  int result;
  std::string text;
};

struct GetCase {
  std::string input;
  int max;
  std::vector<Field> fields;  // results of successive calls
};

class GetStringTest : public ::testing::TestWithParam<GetCase> {};

TEST_P(GetStringTest, ReadsSuccessiveFields) {
  StreamFile stream(GetParam().input);
  for (const Field& expected : GetParam().fields) {
    std::vector<char> buf(GetParam().max + 1, '#');
    EXPECT_EQ(QnUtil_GetString(stream.stream, GetParam().max, buf.data()), expected.result);
    EXPECT_EQ(std::string(buf.data()), expected.text);
  }
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Fields, GetStringTest,
    ::testing::Values(
        GetCase{"", 10, {{-1, ""}}}, GetCase{"x", 10, {{0, "x"}, {-1, ""}}},
        GetCase{"abc\ndef", 10, {{0, "abc"}, {0, "def"}, {-1, ""}}},
        // The line feed after a carriage return is kept, once.
        GetCase{"abc\r\ndef\r\n", 10, {{0, "abc\n"}, {0, "def\n"}, {-1, ""}}},
        GetCase{"ab\rcd", 10, {{0, "ab"}, {0, "cd"}, {-1, ""}}},
        // A carriage return at the end pushes back 0xFF.
        GetCase{"ab\r", 10, {{0, "ab"}, {0, "\xFF"}, {-1, ""}}},
        GetCase{"ab\0cd"s, 10, {{0, "ab"}, {0, "cd"}}},
        GetCase{"ab\r\0cd"s, 10, {{0, "ab"}, {0, "cd"}, {-1, ""}}},
        GetCase{"abcdefg\n", 3, {{0, "abc"}, {0, "def"}, {0, "g"}, {-1, ""}}},
        GetCase{"abc\n", 3, {{0, "abc"}, {0, ""}, {-1, ""}}},
        GetCase{"\n\n", 5, {{0, ""}, {0, ""}, {-1, ""}}}));

TEST(GetString, RejectsBadArgumentsWithoutTouchingTheBuffer) {
  StreamFile stream("abc");
  char buf[4] = "zz";
  EXPECT_EQ(QnUtil_GetString(nullptr, 3, buf), -1);
  EXPECT_EQ(QnUtil_GetString(stream.stream, 0, buf), -1);
  EXPECT_EQ(QnUtil_GetString(stream.stream, -5, buf), -1);
  EXPECT_STREQ(buf, "zz");
  EXPECT_EQ(QnUtil_GetString(stream.stream, 3, nullptr), -1);
}

struct PutCase {
  const char* text;
  int width;
  std::string written;
};

class PutStringTest : public ::testing::TestWithParam<PutCase> {};

TEST_P(PutStringTest, WritesAFixedWidthField) {
  StreamFile stream("");
  EXPECT_EQ(QnUtil_PutString(stream.stream, GetParam().text, GetParam().width), 0);
  EXPECT_EQ(stream.contents(), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(Widths, PutStringTest,
                         ::testing::Values(PutCase{"abcdef", 3, "abc"}, PutCase{"ab", 5, "ab   "},
                                           PutCase{"abc", 0, "abc"}, PutCase{"", 0, ""},
                                           PutCase{nullptr, 2, "  "}, PutCase{"abc", -1, ""}));

TEST(PutString, FailsOnNullStreamAndOnWriteErrors) {
  EXPECT_EQ(QnUtil_PutString(nullptr, "a", 1), -1);
  StreamFile stream("existing");
  std::FILE* read_only = std::fopen(stream.dir.file("s").c_str(), "rb");
  ASSERT_NE(read_only, nullptr);
  EXPECT_EQ(QnUtil_PutString(read_only, "abc", 5), -1);
  std::fclose(read_only);
}

}  // namespace
