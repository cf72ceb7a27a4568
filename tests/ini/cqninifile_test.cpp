// CQnIniFile through the platform's profile functions (the system's own
// under Windows, the library's engine elsewhere).
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

// Members use the bound path, which copies and assignment share and Open
// deliberately leaves alone; doubles are written in six significant digits.
TEST(IniFileTest, MembersWriteAndReadTheBoundFile) {
  qnutil_test::ScratchDir dir;
  const std::string path = dir.file("settings.ini");
  qnutil_test::write_file(path, "[s]\r\nnum=42abc\r\nreal=2.5e3x\r\n");
  const CQnIniFile file(path, 1);
  CQnIniFile assigned;
  EXPECT_EQ(assigned.ReadString("s", "num"), "_TheDefault_");
  assigned = CQnIniFile(file);
  EXPECT_TRUE(assigned.Open(dir.file("other.ini"), 1));
  assigned.Close();
  EXPECT_TRUE(assigned.WriteInt("n", "i", -12));
  for (const auto& [key, value] : {std::pair{"d1", 2.5}, {"d2", 1234567.0}, {"d3", 0.0000125}})
    EXPECT_TRUE(assigned.WriteDouble("n", key, value));
  EXPECT_TRUE(assigned.WriteString("n", "s", "\"quoted text\""));
  EXPECT_EQ(qnutil_test::read_file(path),
            "[s]\r\nnum=42abc\r\nreal=2.5e3x\r\n[n]\r\ni=-12\r\nd1=2.5\r\nd2=1.23457e+06\r\n"
            "d3=1.25e-05\r\ns=\"quoted text\"\r\n");
  EXPECT_EQ(file.ReadInt("s", "num"), 42);
  EXPECT_EQ(file.ReadDouble("s", "real"), 2500.0);
  EXPECT_EQ(file.ReadDouble("n", "d2"), 1234570.0);
  EXPECT_EQ(file.ReadString("n", "s"), "quoted text");
  EXPECT_EQ(CQnIniFile::FileReadInt(path.c_str(), "n", "i"), -12);
}

}  // namespace
