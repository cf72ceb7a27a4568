// CQnIniFile through the platform's profile functions (the system's own
// under Windows, the library's engine elsewhere).
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;

class IniFileTest : public testing::Test {
 protected:
  void SetUp() override {
    qnutil_test::write_file(path_,
                            "[s]\r\ntext=hello world\r\nempty=\r\nnum=42abc\r\nneg=-7\r\n"
                            "real=2.5e3x\r\nword=abc\r\nmarker=_TheDefault_\r\n");
  }
  qnutil_test::ScratchDir dir_;
  std::string path_ = dir_.file("settings.ini");
  const char* file_ = path_.c_str();
};

TEST_F(IniFileTest, WritesFormatIntegersAndDoubles) {
  const CQnIniFile file(path_, 1);
  EXPECT_TRUE(file.WriteInt("n", "i", -12));
  const std::pair<const char*, double> doubles[] = {
      {"d1", 2.5}, {"d2", 1234567.0}, {"d3", 0.0000125}, {"d4", 3.0}};
  for (const auto& [key, value] : doubles) EXPECT_TRUE(file.WriteDouble("n", key, value));
  EXPECT_TRUE(file.WriteString("n", "s", "\"quoted text\""));
  EXPECT_NE(
      read_file(path_).find("[n]\r\ni=-12\r\nd1=2.5\r\nd2=1.23457e+06\r\nd3=1.25e-05\r\nd4=3\r\n"
                            "s=\"quoted text\"\r\n"),
      std::string::npos)
      << read_file(path_);
  EXPECT_EQ(file.ReadInt("n", "i"), -12);
  EXPECT_EQ(file.ReadDouble("n", "d2"), 1234570.0);
  EXPECT_EQ(file.ReadString("n", "s"), "quoted text");
}

TEST_F(IniFileTest, MembersUseTheBoundPathAndCopiesShareIt) {
  CQnIniFile original(path_, 0);
  CQnIniFile copy(original);
  CQnIniFile assigned;
  EXPECT_EQ(assigned.ReadString("s", "text"), "_TheDefault_");
  assigned = original;
  EXPECT_TRUE(assigned.Open(dir_.file("other.ini"), 1));  // deliberately changes nothing
  assigned.Close();
  for (const CQnIniFile* file : {&original, &copy, &assigned}) {
    EXPECT_EQ(file->ReadString("s", "text"), "hello world");
    EXPECT_EQ(file->ReadInt("s", "num"), 42);
  }
  auto* heap = new CQnIniFile(path_, 1);
  EXPECT_TRUE(heap->WriteString("s", "added", "1"));
  delete heap;
  EXPECT_EQ(CQnIniFile::FileReadString(file_, "s", "added"), "1");
}

}  // namespace
