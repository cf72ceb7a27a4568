// The configuration-file search and the lookups through it. Each test runs
// in a fresh current folder with MB pointing to a fresh folder (or unset).
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

namespace fs = std::filesystem;
using qnutil_test::makepath;
using qnutil_test::MessageCapture;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

#ifdef _WIN32
constexpr char kRoot[] = "C:\\";
#else
constexpr char kRoot[] = "/";
#endif
using qnutil_test::kPathSeparator;

// Skips when a configuration file at the root would be found first.
class MbSearch : public ::testing::Test {
 protected:
  void SetUp() override {
    QnUtilDirEntry* found = nullptr;
    unsigned count = 0;
    if (QnUtil_Listdir(kRoot, "mb*.ini", 0, &found, &count) == 0) {
      QnUtil_FreeEntries(&found);
      GTEST_SKIP() << "a configuration file at " << kRoot << " would be found first";
    }
    saved_cwd_ = fs::current_path();
    fs::current_path(work_.path());
    cwd_ = fs::current_path().string();
  }
  void TearDown() override {
    if (!saved_cwd_.empty()) fs::current_path(saved_cwd_);
  }

  void use_mb_folder() { mb_variable_.set(mb_.path().string().c_str()); }

  // A configuration file mb.ini in the current folder with one section.
  std::string write_configuration(const std::string& section_body) {
    write_file(work_.file("mb.ini"), "[Pfade]\r\n" + section_body);
    return cwd_ + kPathSeparator + "mb.ini";
  }

  static std::string configuration_file() {
    char out[QNUTIL_PATH_SIZE] = "untouched";
    if (QnUtil_MB_SucheDatei(nullptr, nullptr, nullptr, out) != 0) return "-1";
    return out;
  }

  ScratchDir work_, mb_;
  std::string cwd_;

 private:
  fs::path saved_cwd_;
  qnutil_test::ScopedEnvironmentVariable mb_variable_{"MB", nullptr};
};

// The current folder's candidate is joined as it stands, not composed; the
// root of the system drive is the last place.
TEST_F(MbSearch, HigherNumberedNameWinsBeforeThePlace) {
  const std::string root_file = std::string(kRoot) + "mb.ini";
  write_file(root_file, "");
  if (fs::exists(root_file)) {
    EXPECT_EQ(configuration_file(), root_file);
  }
  write_file(work_.file("mb.ini"), "");
  write_file(mb_.file("mb.ini"), "");
  use_mb_folder();
  EXPECT_EQ(configuration_file(), cwd_ + kPathSeparator + "mb.ini");
  write_file(work_.file("mb3.ini"), "");
  EXPECT_EQ(configuration_file(), cwd_ + kPathSeparator + "mb3.ini");
  write_file(mb_.file("mb5.ini"), "");
  EXPECT_EQ(configuration_file(), makepath("", mb_.path().string().c_str(), "mb5.ini"));
  fs::remove(root_file);
}

// Listed folders are searched in order; empty entries are skipped.
TEST_F(MbSearch, FindsFilesInTheListedFolders) {
  ScratchDir first, second;
  write_file(second.file("wanted.dat"), "2");
  write_configuration("liste=" + first.path().string() + ";;" + second.path().string() + "\r\n");
  use_mb_folder();
  char out[QNUTIL_PATH_SIZE];
  EXPECT_EQ(QnUtil_MB_SucheDatei("Pfade", "liste", "wanted.dat", out), 0);
  EXPECT_EQ(std::string(out), makepath("", second.path().string().c_str(), "wanted.dat"));
  EXPECT_EQ(QnUtil_MB_SucheDatei("Pfade", "liste", "absent.dat", out), -1);
}

TEST_F(MbSearch, ReadsAFolderFromTheConfiguration) {
#ifdef _WIN32
  const std::string configuration = write_configuration("daten=D:\\Daten\\Bilder\r\nleer=\r\n");
  const char* expected = "d:\\daten\\bilder";
#else
  const std::string configuration = write_configuration("daten=/Daten/Bilder\r\nleer=\r\n");
  const char* expected = "/Daten/Bilder";
#endif
  MessageCapture capture;
  char out[QNUTIL_PATH_SIZE];
  EXPECT_EQ(QnUtil_MB_SuchePfad("Pfade", "daten", out), 0);
  EXPECT_STREQ(out, expected);
  EXPECT_TRUE(capture.boxes().empty());

  EXPECT_EQ(QnUtil_MB_SuchePfad("Pfade", "leer", out), -1);
  ASSERT_EQ(capture.boxes().size(), 1u);
  EXPECT_EQ(capture.boxes()[0].text,
            "Sektion Pfade oder Eintrag leer in " + configuration + " nicht gefunden!");
  EXPECT_EQ(capture.boxes()[0].caption, "MESSAGE in \"qnutilmisc\" line 92:");
  EXPECT_EQ(QnUtil_MB_SuchePfad("Pfade", "daten", nullptr), -1);
  // Without a section or key the configuration file itself is the answer.
  for (const auto& [section, key] :
       {std::pair<const char*, const char*>{nullptr, "daten"}, {"", "daten"}, {"Pfade", ""}}) {
    EXPECT_EQ(QnUtil_MB_SucheDatei(section, key, "absent.dat", out), 0);
    EXPECT_EQ(std::string(out), makepath("", "", configuration.c_str()));
  }
}

using namespace std::string_literals;

TEST(MbIniReadString, CopiesOrReportsTheLength) {
  ScratchDir dir;
  write_file(dir.file("x.ini"), "[S]\r\nnine=123456789\r\nempty=\r\n");
  const struct {
    const char* key;
    int len;
    int result;
    int len_after;
    std::string written;  // bytes written to the start of the buffer
  } cases[] = {           // No room for more: the length is reported and the value still copied.
               {"nine", 10, 0, 9, "123456789\0"s},
               {"nine", 5, 0, 9, "123456789\0"s},
               // Room to spare: the len - 1 bytes are zero-filled.
               {"nine", 12, 0, 12, "123456789\0\0"s},
               {"missing", 20, 0, 20, "_TheDefault_\0\0\0\0\0\0\0"s},
               {"empty", 12, 6, 12, ""}};
  for (const auto& c : cases) {
    std::string buf(24, '#');
    int len = c.len;
    EXPECT_EQ(QnUtil_MB_IniReadString(dir.file("x.ini").c_str(), "S", c.key, buf.data(), &len),
              c.result)
        << c.key;
    EXPECT_EQ(len, c.len_after) << c.key << " " << c.len;
    EXPECT_EQ(buf, c.written + std::string(24 - c.written.size(), '#')) << c.key << " " << c.len;
  }
  char buf[8];
  int len = 8;
  for (const int result : {QnUtil_MB_IniReadString(nullptr, "S", "k", buf, &len),
                           QnUtil_MB_IniReadString("x.ini", "S", "k", nullptr, &len),
                           QnUtil_MB_IniReadString("x.ini", "S", "k", buf, nullptr)})
    EXPECT_EQ(result, -1);
}

}  // namespace
