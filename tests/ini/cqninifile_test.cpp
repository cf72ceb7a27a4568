// CQnIniFile through the platform's profile functions (the system's own
// under Windows, the library's engine elsewhere).
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

class IniFileTest : public testing::Test {
 protected:
  void SetUp() override {
    write_file(path_, "[s]\r\ntext=hello world\r\nempty=\r\nnum=42abc\r\nneg=-7\r\n"
                      "real=2.5e3x\r\nword=abc\r\nmarker=_TheDefault_\r\n");
  }
  ScratchDir dir_;
  std::string path_ = dir_.file("settings.ini");
};

TEST_F(IniFileTest, StringReadsTellMissingFromEmpty) {
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "text"), "hello world");
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "S", "TEXT"), "hello world");
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "empty"), "");
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "missing"), "_TheDefault_");
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "nosection", "text"), "_TheDefault_");
  EXPECT_EQ(CQnIniFile::FileReadString(dir_.file("none.ini").c_str(), "s", "text"), "_TheDefault_");
}

TEST_F(IniFileTest, LongValuesAreCutTo1023Bytes) {
  const std::string long_value(3000, 'x');
  ASSERT_TRUE(CQnIniFile::FileWriteString(path_.c_str(), "s", "long", long_value.c_str()));
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "long"), long_value.substr(0, 1023));
}

TEST_F(IniFileTest, IntegerReads) {
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "num"), 42);
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "neg"), -7);
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "word"), 0);
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "missing"), 0);
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "empty"), 0);
}

TEST_F(IniFileTest, DoubleReads) {
  EXPECT_EQ(CQnIniFile::FileReadDouble(path_.c_str(), "s", "real"), 2500.0);
  EXPECT_EQ(CQnIniFile::FileReadDouble(path_.c_str(), "s", "word"), 0.0);
  EXPECT_EQ(CQnIniFile::FileReadDouble(path_.c_str(), "s", "missing"), INFINITY);
  EXPECT_EQ(CQnIniFile::FileReadDouble(path_.c_str(), "s", "empty"), INFINITY);
  EXPECT_EQ(CQnIniFile::FileReadDouble(path_.c_str(), "s", "marker"), INFINITY);
}

TEST_F(IniFileTest, WritesFormatIntegersAndDoubles) {
  const CQnIniFile file(path_, 1);
  EXPECT_TRUE(file.WriteInt("n", "i", -12));
  EXPECT_TRUE(file.WriteDouble("n", "d1", 2.5));
  EXPECT_TRUE(file.WriteDouble("n", "d2", 1234567.0));
  EXPECT_TRUE(file.WriteDouble("n", "d3", 0.0000125));
  EXPECT_TRUE(file.WriteDouble("n", "d4", 3.0));
  EXPECT_TRUE(file.WriteString("n", "s", "\"quoted text\""));
  EXPECT_NE(read_file(path_).find("[n]\r\ni=-12\r\nd1=2.5\r\nd2=1.23457e+06\r\nd3=1.25e-05\r\nd4=3\r\n"
                                  "s=\"quoted text\"\r\n"),
            std::string::npos)
      << read_file(path_);
  EXPECT_EQ(file.ReadInt("n", "i"), -12);
  EXPECT_EQ(file.ReadDouble("n", "d2"), 1234570.0);
  EXPECT_EQ(file.ReadString("n", "s"), "quoted text");
}

TEST_F(IniFileTest, NullValueDeletesKeyAndNullKeyTheSection) {
  EXPECT_TRUE(CQnIniFile::FileWriteString(path_.c_str(), "s", "text", nullptr));
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "text"), "_TheDefault_");
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "num"), 42);
  EXPECT_TRUE(CQnIniFile::FileWriteString(path_.c_str(), "s", nullptr, nullptr));
  EXPECT_EQ(CQnIniFile::FileReadInt(path_.c_str(), "s", "num"), 0);
}

TEST_F(IniFileTest, WriteIntoAMissingFolderFails) {
  const std::string bad = dir_.file("missing-folder/x.ini");
  EXPECT_FALSE(CQnIniFile::FileWriteString(bad.c_str(), "s", "k", "v"));
  EXPECT_FALSE(CQnIniFile::FileWriteInt(bad.c_str(), "s", "k", 1));
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
}

TEST_F(IniFileTest, HeapObjectsDestroyThroughTheBase) {
  CQnIniFile* file = new CQnIniFile(path_, 1);
  EXPECT_TRUE(file->WriteString("s", "added", "1"));
  delete file;
  EXPECT_EQ(CQnIniFile::FileReadString(path_.c_str(), "s", "added"), "1");
}

}  // namespace
