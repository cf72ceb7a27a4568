// The mini_* C interface.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

class MiniTest : public testing::Test {
 protected:
  void SetUp() override {
    write_file(path_, "[s]\r\nempty=\r\nlong=123xyz\r\nhuge=99999999999\r\nreal=-2.25\r\n"
                      "inf=1e999\r\nword=abcdef\r\nshort=ab\r\nlist=1,2,3\r\nblanks=1 2 3\r\n"
                      "trailing=1,2,\r\ndouble_sep=1,,2\r\nsigned_sep=1,-2\r\nbad=x\r\n");
    handle_ = mini_open_ex(path_.c_str(), 0);
    ASSERT_NE(handle_, nullptr);
  }
  void TearDown() override { mini_close(&handle_); }

  ScratchDir dir_;
  std::string path_ = dir_.file("mini.ini");
  MiniHandle handle_ = nullptr;
};

TEST_F(MiniTest, OpenNeedsAnExistingAccessibleFile) {
  EXPECT_EQ(mini_open_ex(dir_.file("none.ini").c_str(), 0), nullptr);
  EXPECT_EQ(mini_open_ex(dir_.file("none.ini").c_str(), QNUTIL_MINI_READ), nullptr);
  EXPECT_EQ(mini_open_ex("", QNUTIL_MINI_READ), nullptr);
  EXPECT_EQ(mini_open_ex(nullptr, QNUTIL_MINI_READ), nullptr);
  MiniHandle reader = mini_open_ex(path_.c_str(), QNUTIL_MINI_READ);
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(mini_close(&reader), 1);
  EXPECT_NE(reader, nullptr);  // the caller's variable is not cleared
  MiniHandle none = nullptr;
  EXPECT_EQ(mini_close(&none), 0);
  EXPECT_EQ(mini_close(nullptr), 0);
}

TEST_F(MiniTest, OpenComposesFolderAndName) {
  MiniHandle composed = mini_open(dir_.path().string().c_str(), "mini.ini", QNUTIL_MINI_READ);
  ASSERT_NE(composed, nullptr);
  char buf[16];
  unsigned int len = sizeof buf - 1;
  EXPECT_EQ(mini_read_string(composed, "s", "short", buf, &len), 0);
  EXPECT_STREQ(buf, "ab");
  mini_close(&composed);
}

TEST_F(MiniTest, ReadLong) {
  long value = 99;
  EXPECT_EQ(mini_read_long(handle_, "s", "long", &value), 0);
  EXPECT_EQ(value, 123);
  EXPECT_EQ(mini_read_long(handle_, "s", "empty", &value), 0);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(mini_read_long(handle_, "s", "huge", &value), 0);
  EXPECT_EQ(value, 2147483647);  // a 32-bit long saturates on every target
  value = 5;
  EXPECT_EQ(mini_read_long(handle_, "s", "missing", &value), -1);
  EXPECT_EQ(value, 5);
  EXPECT_EQ(mini_read_long(handle_, "s", "long", nullptr), -1);
  EXPECT_EQ(mini_read_long(nullptr, "s", "long", &value), -1);
  EXPECT_EQ(mini_read_long(handle_, nullptr, "long", &value), -1);
}

TEST_F(MiniTest, ReadDouble) {
  double value = 7;
  EXPECT_EQ(mini_read_double(handle_, "s", "real", &value), 0);
  EXPECT_EQ(value, -2.25);
  value = 7;
  for (const char* key : {"empty", "missing", "inf"}) {
    EXPECT_EQ(mini_read_double(handle_, "s", key, &value), -1) << key;
    EXPECT_EQ(value, 7) << key;
  }
  EXPECT_EQ(mini_read_double(handle_, "s", "bad", &value), 0);
  EXPECT_EQ(value, 0.0);
}

TEST_F(MiniTest, ReadStringCutsAtTheGivenLength) {
  char buf[16];
  std::memset(buf, 'x', sizeof buf);
  unsigned int len = 4;
  EXPECT_EQ(mini_read_string(handle_, "s", "word", buf, &len), 0);
  EXPECT_STREQ(buf, "abcd");
  EXPECT_EQ(len, 4u);
  EXPECT_EQ(buf[5], 'x');
  len = 4;
  EXPECT_EQ(mini_read_string(handle_, "s", "short", buf, &len), 0);
  EXPECT_STREQ(buf, "ab");
  EXPECT_EQ(len, 2u);
  len = 6;
  EXPECT_EQ(mini_read_string(handle_, "s", "word", buf, &len), 0);
  EXPECT_STREQ(buf, "abcdef");
  EXPECT_EQ(len, 6u);
  len = 8;
  EXPECT_EQ(mini_read_string(handle_, "s", "empty", buf, &len), 0);
  EXPECT_STREQ(buf, "");
  EXPECT_EQ(len, 0u);
  len = 8;
  std::strcpy(buf, "keep");
  EXPECT_EQ(mini_read_string(handle_, "s", "missing", buf, &len), -1);
  EXPECT_STREQ(buf, "keep");
  EXPECT_EQ(len, 8u);
  EXPECT_EQ(mini_read_string(handle_, "s", "word", buf, nullptr), -1);
}

struct ListCase {
  const char* key;
  int capacity;
  int result;
  std::vector<double> stored;  // the values in out afterwards (rest untouched: 99)
  int count_after;
};

class MiniListRead : public MiniTest, public testing::WithParamInterface<ListCase> {};

TEST_P(MiniListRead, StoresWhatWasParsed) {
  const ListCase& c = GetParam();
  std::vector<double> out(5, 99.0);
  int count = c.capacity;
  EXPECT_EQ(mini_read_doubles(handle_, "s", c.key, out.data(), &count), c.result) << c.key;
  EXPECT_EQ(count, c.count_after) << c.key;
  std::vector<double> expected = c.stored;
  expected.resize(5, 99.0);
  EXPECT_EQ(out, expected) << c.key;
}

INSTANTIATE_TEST_SUITE_P(
    Lists, MiniListRead,
    testing::Values(ListCase{"list", 5, 0, {1, 2, 3}, 3}, ListCase{"blanks", 5, 0, {1, 2, 3}, 3},
                    ListCase{"list", 2, 0, {1, 2}, 2}, ListCase{"trailing", 5, -1, {1, 2}, 5},
                    ListCase{"trailing", 2, 0, {1, 2}, 2}, ListCase{"double_sep", 5, -1, {1}, 5},
                    ListCase{"signed_sep", 5, 0, {1, -2}, 2}, ListCase{"empty", 5, -1, {}, 5},
                    ListCase{"missing", 5, -1, {}, 5}, ListCase{"bad", 5, -1, {}, 5},
                    ListCase{"real", 5, 0, {-2.25}, 1}, ListCase{"list", 0, -1, {}, 0}));

TEST_F(MiniTest, WriteDoublesFormatsWholeNumbersAsIntegers) {
  const double values[] = {1.0, 2.5, -3.0};
  EXPECT_EQ(mini_write_doubles(handle_, "w", "list", values, 3), 0);
  const double edge[] = {2147483648.0, 2147483647.0, -0.0, 1e-7, 0.1234567, NAN};
  EXPECT_EQ(mini_write_doubles(handle_, "w", "edge", edge, 6), 0);
  EXPECT_EQ(mini_write_doubles(handle_, "w", "none", nullptr, 0), 0);
  EXPECT_EQ(mini_write_doubles(handle_, "w", "bad", nullptr, 2), -1);
  const std::string file = read_file(path_);
  EXPECT_NE(file.find("[w]\r\nlist=1,2.500000,-3\r\n"
                      "edge=-2147483648,2147483647,0,0.000000,0.123457,"),
            std::string::npos)
      << file;
  EXPECT_NE(file.find("nan"), std::string::npos) << file;
  EXPECT_NE(file.find("none=\r\n"), std::string::npos) << file;
  double back[3] = {};
  int count = 3;
  EXPECT_EQ(mini_read_doubles(handle_, "w", "list", back, &count), 0);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(back[1], 2.5);
}

TEST_F(MiniTest, ScalarWritesRoundTrip) {
  EXPECT_EQ(mini_write_long(handle_, "w", "l", -42), 0);
  EXPECT_EQ(mini_write_double(handle_, "w", "d", 1e-7), 0);
  EXPECT_EQ(mini_write_string(handle_, "w", "t", "text"), 0);
  EXPECT_EQ(mini_write_string(handle_, "w", "t", nullptr), -1);
  EXPECT_EQ(mini_write_long(nullptr, "w", "l", 1), -1);
  EXPECT_NE(read_file(path_).find("[w]\r\nl=-42\r\nd=1e-07\r\nt=text\r\n"), std::string::npos);
  long l = 0;
  double d = 0;
  EXPECT_EQ(mini_read_long(handle_, "W", "L", &l), 0);
  EXPECT_EQ(l, -42);
  EXPECT_EQ(mini_read_double(handle_, "w", "d", &d), 0);
  EXPECT_EQ(d, 1e-7);
}

TEST_F(MiniTest, WritesToAReadOnlyFileFail) {
  const std::string ro = dir_.file("ro.ini");
  write_file(ro, "[s]\r\nk=v\r\n");
  std::filesystem::permissions(ro, std::filesystem::perms::owner_read);
  if (std::ofstream(ro, std::ios::app)) GTEST_SKIP() << "permissions do not apply to this user";
  EXPECT_EQ(mini_open_ex(ro.c_str(), 0), nullptr);
  MiniHandle reader = mini_open_ex(ro.c_str(), QNUTIL_MINI_READ);
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(mini_write_string(reader, "s", "k", "w"), -1);
  mini_close(&reader);
}

}  // namespace
