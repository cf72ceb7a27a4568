// Fixed-width text fields of a C stream.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::ScratchDir;

// A stream over `bytes`, read from the start.
class StreamFile {
 public:
  explicit StreamFile(const std::string& bytes, const char* mode = "w+b") {
    stream_ = std::fopen(dir_.file("stream").c_str(), mode);
    std::fwrite(bytes.data(), 1, bytes.size(), stream_);
    std::rewind(stream_);
  }
  ~StreamFile() {
    if (stream_ != nullptr) std::fclose(stream_);
  }
  FILE* get() const { return stream_; }
  std::string contents() {
    std::fflush(stream_);
    return qnutil_test::read_file(dir_.file("stream"));
  }
  ScratchDir& dir() { return dir_; }

 private:
  ScratchDir dir_;
  FILE* stream_ = nullptr;
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
    EXPECT_EQ(QnUtil_GetString(stream.get(), GetParam().max, buf.data()), expected.result);
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
  EXPECT_EQ(QnUtil_GetString(stream.get(), 0, buf), -1);
  EXPECT_EQ(QnUtil_GetString(stream.get(), -5, buf), -1);
  EXPECT_STREQ(buf, "zz");
  EXPECT_EQ(QnUtil_GetString(stream.get(), 3, nullptr), -1);
}

struct PutCase {
  const char* text;
  int width;
  std::string written;
};

class PutStringTest : public ::testing::TestWithParam<PutCase> {};

TEST_P(PutStringTest, WritesAFixedWidthField) {
  StreamFile stream("");
  EXPECT_EQ(QnUtil_PutString(stream.get(), GetParam().text, GetParam().width), 0);
  EXPECT_EQ(stream.contents(), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(Widths, PutStringTest,
                         ::testing::Values(PutCase{"abcdef", 3, "abc"}, PutCase{"ab", 5, "ab   "},
                                           PutCase{"abc", 0, "abc"}, PutCase{"", 0, ""},
                                           PutCase{nullptr, 2, "  "}, PutCase{"abc", -1, ""}));

TEST(PutString, FailsOnNullStreamAndOnWriteErrors) {
  EXPECT_EQ(QnUtil_PutString(nullptr, "a", 1), -1);
  StreamFile stream("existing");
  std::FILE* read_only = std::fopen(stream.dir().file("stream").c_str(), "rb");
  ASSERT_NE(read_only, nullptr);
  EXPECT_EQ(QnUtil_PutString(read_only, "abc", 5), -1);
  std::fclose(read_only);
}

}  // namespace
