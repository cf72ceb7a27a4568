#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

using qnutil_test::MessageCapture;
using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

namespace {

// The log is opened in the C runtime's text mode: CR LF line ends on Windows.
#ifdef _WIN32
#define LINE_END "\r\n"
#else
#define LINE_END "\n"
#endif

// Windows-1252 texts of the module's string table.
const std::string kSubstitutedNotice =
    "Die Datei %s konnte nicht als aktuelle Logdatei ge\xF6"
    "ffnet werden. \n\n"
    "Meldungen werden in der Datei %s protokolliert!";
const std::string kNoLogfileNotice =
    "Es konnte keine Logdatei im Ausf\xFChrungsverzeichnis angelegt oder ge\xF6"
    "ffnet werden!";

std::string substituted_notice(const std::string& requested, const std::string& used) {
  std::string text = kSubstitutedNotice;
  text.replace(text.find("%s"), 2, requested);
  text.replace(text.find("%s"), 2, used);
  return text;
}

class LogTest : public testing::Test {
 protected:
  void TearDown() override { QnUtil_SetWriteToLogfile(0, nullptr, 0); }
  ScratchDir dir;
  MessageCapture capture;
};

TEST_F(LogTest, UnopenableNameFallsBackToNumberedName) {
  // A directory of the requested name cannot be opened as a file.
  const std::string requested = dir.file("taken");
  std::filesystem::create_directory(requested);
  const std::string used = requested + "_1";
  QnUtil_SetWriteToLogfile(1, requested.c_str(), 1);
  ASSERT_EQ(capture.boxes().size(), 1u);
  EXPECT_EQ(capture.boxes()[0].caption, "");
  EXPECT_EQ(capture.boxes()[0].text, substituted_notice(requested, used));
  EXPECT_EQ(QnUtil_GetWriteToLogfile(), 1);
  QnUtil_Message("redirected", nullptr, nullptr, nullptr, 0);
  EXPECT_NE(read_file(used).find("redirected"), std::string::npos);
}

TEST_F(LogTest, FallbackSkipsNamesThatCannotBeOpenedEither) {
  const std::string requested = dir.file("busy");
  for (const char* suffix : {"", "_1", "_2"}) std::filesystem::create_directory(requested + suffix);
  QnUtil_SetWriteToLogfile(1, requested.c_str(), 0);
  ASSERT_EQ(capture.boxes().size(), 1u);
  EXPECT_EQ(capture.boxes()[0].text, substituted_notice(requested, requested + "_3"));
}

}  // namespace
