// Folder listing: names matched as Windows matches them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using Names = std::vector<std::string>;

TEST(ListdirPattern, MatchesLikeWindows) {
  qnutil_test::ScratchDir dir;
  for (const char* name : {"alpha.txt", "beta.TXT", "gamma", "a1.dat", "ab.dat", "x.y.z"})
    qnutil_test::write_file(dir.file(name), "");
  const std::pair<const char*, Names> rows[] = {
      // pattern, the matches sorted
      {"*.*", {"a1.dat", "ab.dat", "alpha.txt", "beta.TXT", "gamma", "x.y.z"}},
      {"*.txt", {"alpha.txt", "beta.TXT"}},
      {"a?.dat", {"a1.dat", "ab.dat"}},
      {"GAMMA", {"gamma"}},
      {"*.z", {"x.y.z"}},
      {"x.*", {"x.y.z"}}};
  for (const auto& [pattern, matches] : rows) {
    QnUtilDirEntry* block = nullptr;
    unsigned count = 0;
    ASSERT_EQ(QnUtil_Listdir(dir.path().string().c_str(), pattern, 0, &block, &count), 0);
    Names names;
    for (unsigned i = 0; i < count; ++i) {
      const std::string name = block[i].name;
      if (name != "." && name != "..") names.push_back(name);
    }
    QnUtil_FreeEntries(&block);
    EXPECT_EQ(block, nullptr);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, matches) << pattern;
  }
}

}  // namespace
