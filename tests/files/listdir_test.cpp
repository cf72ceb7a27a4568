// Folder listing: names matched as Windows matches them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

struct PatternCase {
  const char* pattern;
  std::vector<std::string> matches;  // among the files below, sorted
};

class ListdirPattern : public ::testing::TestWithParam<PatternCase> {};

TEST_P(ListdirPattern, MatchesLikeWindows) {
  qnutil_test::ScratchDir dir;
  for (const char* name : {"alpha.txt", "beta.TXT", "gamma", "a1.dat", "ab.dat", "x.y.z"}) {
    qnutil_test::write_file(dir.file(name), "");
  }
  QnUtilDirEntry* block = nullptr;
  unsigned count = 0;
  ASSERT_EQ(QnUtil_Listdir(dir.path().string().c_str(), GetParam().pattern, 0, &block, &count), 0);
  std::vector<std::string> names;
  for (unsigned i = 0; i < count; ++i) {
    const std::string name = block[i].name;
    if (name != "." && name != "..") names.push_back(name);
  }
  QnUtil_FreeEntries(&block);
  EXPECT_EQ(block, nullptr);
  std::sort(names.begin(), names.end());
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
