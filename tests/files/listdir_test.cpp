// Folder listing: names matched as Windows matches them.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

namespace fs = std::filesystem;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

constexpr std::uint32_t kKindBits = QNUTIL_ENTRY_FILE | QNUTIL_ENTRY_FOLDER;

struct Listing {
  int result = 0;
  std::map<std::string, QnUtilDirEntry> entries;
  unsigned count = 0;
};

Listing list(const std::string& dir, const char* pattern) {
  Listing listing;
  QnUtilDirEntry* block = nullptr;
  listing.result = QnUtil_Listdir(dir.c_str(), pattern, 0, &block, &listing.count);
  for (unsigned i = 0; i < listing.count; ++i) listing.entries[block[i].name] = block[i];
  QnUtil_FreeEntries(&block);
  EXPECT_EQ(block, nullptr);
  return listing;
}

struct PatternCase {
  const char* pattern;
  std::vector<std::string> matches;  // among the files below
};

class ListdirPattern : public ::testing::TestWithParam<PatternCase> {};

TEST_P(ListdirPattern, MatchesLikeWindows) {
  ScratchDir dir;
  for (const char* name : {"alpha.txt", "beta.TXT", "gamma", "a1.dat", "ab.dat", "x.y.z"}) {
    write_file(dir.file(name), "");
  }
  const Listing listing = list(dir.path().string(), GetParam().pattern);
  std::vector<std::string> names;
  for (const auto& [name, entry] : listing.entries) {
    if (name != "." && name != "..") names.push_back(name);
  }
  EXPECT_EQ(names, GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(
    Wildcards, ListdirPattern,
    ::testing::Values(PatternCase{"*.*",
                                  {"a1.dat", "ab.dat", "alpha.txt", "beta.TXT", "gamma", "x.y.z"}},
                      PatternCase{"*.txt", {"alpha.txt", "beta.TXT"}},
                      PatternCase{"a?.dat", {"a1.dat", "ab.dat"}}, PatternCase{"GAMMA", {"gamma"}},
                      PatternCase{"*.z", {"x.y.z"}}, PatternCase{"x.*", {"x.y.z"}}));

}  // namespace
