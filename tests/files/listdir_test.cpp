// Folder listing: the record layout, matching, flags, sizes and times.
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

// 25 matches cross two enlargements of the block; the default pattern
// lists folders and the folder itself too.
TEST(Listdir, ListsEveryMatchWithItsKindAndSize) {
  ScratchDir dir;
  for (int i = 0; i < 25; ++i)
    write_file(dir.file("f" + std::to_string(i) + ".dat"), std::string(i, 'x'));
  fs::create_directory(dir.path() / "sub");
  for (const char* pattern : {"*.dat", "", static_cast<const char*>(nullptr)}) {
    const bool everything = pattern == nullptr || *pattern == '\0';
    const Listing listing = list(dir.path().string(), pattern);
    ASSERT_EQ(listing.result, 0);
    EXPECT_EQ(listing.count, everything ? 28u : 25u);
    for (int i = 0; i < 25; ++i) {
      const auto found = listing.entries.find("f" + std::to_string(i) + ".dat");
      ASSERT_NE(found, listing.entries.end()) << i;
      EXPECT_EQ(found->second.size, static_cast<std::uint32_t>(i));
      EXPECT_EQ(found->second.flags & kKindBits, QNUTIL_ENTRY_FILE);
    }
    if (!everything) continue;
    for (const char* folder : {".", "..", "sub"})
      EXPECT_EQ(listing.entries.at(folder).flags & kKindBits, QNUTIL_ENTRY_FOLDER) << folder;
  }
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
