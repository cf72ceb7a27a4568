// fio files: modes, the byte-order header, bytes, fields and seeking.
#include <gtest/gtest.h>

#include <string>

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

TEST_F(Fio, NeedsExactlyOneDirection) {
  put("x");
  for (int mode : {0, 3, 5, 6, 7, QNUTIL_FIO_UPDATE, QNUTIL_FIO_TEXT | QNUTIL_FIO_HEADER}) {
    EXPECT_EQ(open(mode), nullptr) << mode;
  }
}

TEST_F(Fio, MissingFileCannotBeRead) { EXPECT_EQ(open(QNUTIL_FIO_READ), nullptr); }

TEST_F(Fio, WritesTheHeaderAndReadsPastIt) {
  QnUtilFioFile* file = open(QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->mode, QNUTIL_FIO_WRITE | QNUTIL_FIO_HEADER);
  EXPECT_EQ(fio_putchar(file, 'A'), 0);
  EXPECT_EQ(fio_close(file), 0);
  EXPECT_EQ(contents(), std::string(kHeader) + "A");

  file = open(QNUTIL_FIO_READ | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->byteOrder, QNUTIL_FIO_LITTLE_ENDIAN);
  EXPECT_EQ(fio_getchar(file, nullptr), 'A');
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
                      HeaderCase{"1.1  @mbINTEL   z", QNUTIL_FIO_LITTLE_ENDIAN, 'z'},
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

TEST_F(Fio, FieldsRoundTrip) {
  QnUtilFioFile* file = open(QNUTIL_FIO_WRITE | QNUTIL_FIO_UPDATE | QNUTIL_FIO_HEADER);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(fio_putstring(file, "name", 6), 0);
  EXPECT_EQ(fio_putchar(file, '\n'), 0);
  EXPECT_EQ(fio_flush(file), 0);
  EXPECT_EQ(fio_seek(file, 16, 0), 0);
  char buf[16];
  EXPECT_EQ(fio_getstring(file, 15, buf), 0);
  EXPECT_STREQ(buf, "name  ");
  EXPECT_EQ(fio_getstring(file, 15, buf), -1);
  fio_close(file);
}

TEST_F(Fio, KeepsTheComposedPath) {
  put("");
  QnUtilFioFile* file = open(QNUTIL_FIO_READ);
  ASSERT_NE(file, nullptr);
  char expected[QNUTIL_PATH_SIZE];
  QnUtil_Makepath(expected, "", dir_.path().string().c_str(), "data.bin");
  EXPECT_STREQ(file->path, expected);
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

}  // namespace
