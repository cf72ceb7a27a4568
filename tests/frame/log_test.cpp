#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

// A requested log name that cannot be opened (a folder holds it) falls back
// to the first numbered name that can, and the user is told which, in the
// Windows-1252 text of the module's string table.
TEST(LogFile, UnopenableNameFallsBackToTheNextNumberedName) {
  for (const int taken : {1, 3}) {
    qnutil_test::ScratchDir dir;
    qnutil_test::MessageCapture capture;
    const std::string requested = dir.file("taken");
    std::filesystem::create_directory(requested);
    for (int n = 1; n < taken; ++n)
      std::filesystem::create_directory(requested + "_" + std::to_string(n));
    const std::string used = requested + "_" + std::to_string(taken);
    QnUtil_SetWriteToLogfile(1, requested.c_str(), 1);
    ASSERT_EQ(capture.boxes().size(), 1u);
    EXPECT_EQ(capture.boxes()[0].caption, "");
    EXPECT_EQ(capture.boxes()[0].text, "Die Datei " + requested +
                                           " konnte nicht als aktuelle Logdatei ge\366ffnet "
                                           "werden. \n\nMeldungen werden in der Datei " +
                                           used + " protokolliert!");
    EXPECT_EQ(QnUtil_GetWriteToLogfile(), 1);
    QnUtil_Message("redirected", nullptr, nullptr, nullptr, 0);
    EXPECT_NE(qnutil_test::read_file(used).find("redirected"), std::string::npos);
    QnUtil_SetWriteToLogfile(0, nullptr, 0);
  }
}

}  // namespace
