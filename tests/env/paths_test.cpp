// Paths, occurrence numbers, creation of missing paths, the delimiter and
// long lists under deletion.
#include <map>
#include <random>

#include "env_fixture.h"

using namespace env_test;

namespace {

// Everything is stored by puts, so that creation with occurrence numbers is
// exercised by the same table. Each row: path, direct, the data text or
// "<code>" for a failed get.
TEST(EnvLookup, FindsTheElement) {
  Env env;
  put_all(env, {{"S", "a", "1"},
                {"S", "wall@height", "1"},
                {"S", "wall@2@height", "2"},
                {"S", "wall@2@layer", "L"},
                {"S", "blk@a", "first"},
                {"S", "blk@a@3", "third"},
                {"S", "p@q@name", "deep"},
                {"S", "r@name", "shallow"},
                {"S", "r@name@2", "shallow two"},
                {"S", "7", "seven"},     // a first component is a name
                {"S", "d@1@5", "five"},  // after a number, a name again
                {"S", "t", "text"},
                {"S", "t@b@2@c", "below data"}});
  const struct {
    const char* path;
    int direct;
    const char* expected;
  } rows[] = {{"wall@height", 1, "1"},
              {"wall@1@height", 1, "1"},
              {"wall@2@height", 1, "2"},
              {"wall@2@layer", 1, "L"},
              {"blk@a@2", 1, ""},  // the gap is filled with empty data
              {"blk@a@3", 1, "third"},
              {"whatever@0", 1, "1"},  // the first element
              {"name", 0, "shallow"},  // breadth first: the shallowest list
              {"name@2", 0, "shallow two"},
              {"q@name", 0, "deep"},
              {"name@3", 0, "<-4>"},
              {"7", 1, "seven"},
              {"d@1@5@1", 1, "five"},
              {"d@5", 1, "<-4>"},  // "5" is a number here
              {"t", 1, "<-1>"},    // creation below data turned it into a block
              {"t@b@1", 1, ""},
              {"t@b@2@c", 1, "below data"}};
  for (const auto& row : rows)
    EXPECT_EQ(get_text(env, "S", row.path, row.direct), row.expected) << row.path;
}

TEST(EnvPaths, DelimiterIsProcessWideAndReturnsThePrevious) {
  struct Restore {
    ~Restore() { env_set_delimiter("@"); }
  } restore;
  Env env;
  EXPECT_STREQ(env_set_delimiter("/"), "@");
  EXPECT_STREQ(env_set_delimiter(nullptr), "/");
  EXPECT_STREQ(env_set_delimiter(""), "/");
  ASSERT_EQ(env_put(env, "S", "a/2/b", "x"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "a/2/b"), "x");
  EXPECT_STREQ(env_set_delimiter("/."), "/");
  EXPECT_EQ(get_text(env, "S", "a.2/b"), "x");  // every character separates
  char path[32];
  ASSERT_EQ(env_create_path(sizeof path, path, "a", "b", "c", nullptr), ENV_OK);
  EXPECT_STREQ(path, "a/b/c");  // building uses the first character
}

// Random deletions and appends in a list long enough for the name index,
// against a model of the occurrence numbers; positions stay in list order.
TEST(EnvPaths, LongListsStayConsistentUnderDeletion) {
  Env env;
  std::mt19937 random(11);
  std::map<std::string, std::vector<int>> model;  // name -> values in order
  int next_value = 0;
  for (int step = 0; step < 6000; ++step) {
    const std::string name = "k" + std::to_string(random() % 1500);
    auto& values = model[name];
    if (random() % 3 == 0 && !values.empty()) {
      const std::size_t n = random() % values.size();
      ASSERT_EQ(env_delete(env, "S", (name + "@" + std::to_string(n + 1)).c_str()), ENV_OK);
      values.erase(values.begin() + static_cast<long>(n));
    } else {
      values.push_back(next_value);
      const std::string path = name + "@" + std::to_string(values.size());
      ASSERT_EQ(env_put_long(env, "S", path.c_str(), next_value++), ENV_OK);
    }
  }
  int total = 0;
  for (const auto& [name, values] : model) {
    ASSERT_EQ(env_count_path(env, "S", name.c_str(), 1), static_cast<int>(values.size())) << name;
    total += static_cast<int>(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
      long value = -1;
      ASSERT_EQ(env_get_long(env, "S", (name + "@" + std::to_string(i + 1)).c_str(), 1, &value), 1);
      EXPECT_EQ(value, values[i]) << name << "@" << i + 1;
    }
  }
  ASSERT_EQ(env_count_elements(env, "S", nullptr, 1), total);
  char name[8];
  EXPECT_EQ(
      env_get_pos(env, "S", nullptr, 1, total, nullptr, sizeof name, name, 0, nullptr, nullptr),
      ENV_DATA);
  EXPECT_EQ(
      env_get_pos(env, "S", nullptr, 1, total + 1, nullptr, sizeof name, name, 0, nullptr, nullptr),
      ENV_NOT_FOUND);
}

}  // namespace
