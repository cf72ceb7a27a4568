// Paths, occurrence numbers, creation of missing paths, the delimiter and
// path building.
#include <map>
#include <random>

#include "env_fixture.h"

using env_test::Env;
using env_test::get_text;
using qnutil_test::MessageCapture;

namespace {

// Restores the default delimiter after a test that changed it.
class DelimiterGuard {
 public:
  ~DelimiterGuard() { env_set_delimiter("@"); }
};

TEST(EnvPaths, DuplicateNamesAreKeptAndNumbered) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "wall@height", "1"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "wall@2@height", "2"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "wall@2@layer", "L"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "wall@height"), "1");
  EXPECT_EQ(get_text(env, "S", "wall@1@height"), "1");
  EXPECT_EQ(get_text(env, "S", "wall@2@height"), "2");
  EXPECT_EQ(get_text(env, "S", "wall@2@layer"), "L");
  EXPECT_EQ(env_count_path(env, "S", "wall", 1), 2);
  EXPECT_EQ(env_count_path(env, "S", "wall@2@height", 1), 1);
  EXPECT_EQ(env_count_path(env, "S", "nothing", 1), 0);
  MessageCapture quiet;
  EXPECT_EQ(env_count_path(env, "S", "@", 1), ENV_BAD_PATH);
  EXPECT_EQ(env_count_path(nullptr, "S", "wall", 1), ENV_ERROR);
}

TEST(EnvPaths, CreationFillsMissingOccurrencesWithEmptyData) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "blk@a", "first"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "blk@a@3", "third"), ENV_OK);
  EXPECT_EQ(env_count_path(env, "S", "blk@a", 1), 3);
  EXPECT_EQ(get_text(env, "S", "blk@a@2"), "");
  EXPECT_EQ(env_check(env, "S", "blk@a@2", 1), ENV_DATA);
  EXPECT_EQ(get_text(env, "S", "blk@a@3"), "third");

  // Under an empty block: an empty first x, then the second with the value.
  EnvHandle* sub = env_create_subenv(env, "S", "empty");
  ASSERT_EQ(env_put(sub, nullptr, "x@2", "v"), ENV_OK);
  EXPECT_EQ(env_count_path(env, "S", "empty@x", 1), 2);
  EXPECT_EQ(get_text(env, "S", "empty@x@1"), "");
  EXPECT_EQ(get_text(env, "S", "empty@x@2"), "v");
  env_close(sub, 0);
}

TEST(EnvPaths, CreationBelowDataTurnsItIntoABlock) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "a", "text"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "a@b@2@c", "deep"), ENV_OK);
  EXPECT_EQ(env_check(env, "S", "a", 1), ENV_BLOCK);
  EXPECT_EQ(get_text(env, "S", "a@b@1"), "");
  EXPECT_EQ(get_text(env, "S", "a@b@2@c"), "deep");
}

TEST(EnvPaths, PutReplacesContentOfAnyKind) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "x@y", "1"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "x", "flat"), ENV_OK);  // the block loses its list
  EXPECT_EQ(get_text(env, "S", "x"), "flat");
  ASSERT_EQ(env_put_external(env, "S", "x", 77u), ENV_OK);
  unsigned value = 0;
  EXPECT_EQ(env_get_external(env, "S", "x", 1, &value), 1);
  EXPECT_EQ(value, 77u);
  // A section address changes nothing.
  ASSERT_EQ(env_put(env, "S", nullptr, "ignored"), ENV_OK);
  EXPECT_EQ(env_check(env, "S", nullptr, 1), ENV_BLOCK);
  EXPECT_EQ(get_text(env, "S", "x"), "<-1>");
}

TEST(EnvPaths, PutWithOnlyDelimitersStoresNothing) {
  Env env;
  MessageCapture capture;
  EXPECT_EQ(env_put(env, "S", "@@@", "x"), ENV_OK);
  EXPECT_EQ(env_count_elements(env, nullptr, nullptr, 1), 0);
  EXPECT_EQ(env_check(env, "S", "", 1), ENV_BAD_PATH);
  ASSERT_EQ(capture.boxes().size(), 2u);
  EXPECT_EQ(capture.boxes()[0].text, "Bad Path was given");
}

TEST(EnvPaths, NullSectionOnRootIsReported) {
  Env env;
  MessageCapture capture;
  EXPECT_EQ(env_put(env, nullptr, "a", "x"), ENV_ERROR);
  ASSERT_EQ(capture.boxes().size(), 1u);
  EXPECT_EQ(capture.boxes()[0].text, "bypass Nil section");
}

TEST(EnvPaths, OccurrenceZero) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "a", "1"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "b", "2"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "whatever@0"), "1");  // the first element, any name
  EXPECT_EQ(env_check(env, "S", "b@0", 0), ENV_NOT_FOUND);
  Env empty;
  EXPECT_EQ(env_put(empty, "S", "a@0", "x"), ENV_BAD_PATH);
  EXPECT_EQ(env_count_elements(empty, "S", nullptr, 1), 0);
}

TEST(EnvPaths, DigitNamesAfterOccurrenceNumbers) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "7", "seven"), ENV_OK);  // a first component is a name
  EXPECT_EQ(get_text(env, "S", "7"), "seven");
  ASSERT_EQ(env_put(env, "S", "a@1@5", "five"), ENV_OK);  // after a number, a name again
  EXPECT_EQ(get_text(env, "S", "a@1@5@1"), "five");
  EXPECT_EQ(get_text(env, "S", "a@5"), "<-4>");  // "5" is the occurrence number here
}

TEST(EnvPaths, BreadthFirstSearchTakesTheShallowestList) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "p@q@name", "deep"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "r@name", "shallow"), ENV_OK);
  ASSERT_EQ(env_put(env, "S", "r@name@2", "shallow two"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "name", 0), "shallow");
  EXPECT_EQ(get_text(env, "S", "name@2", 0), "shallow two");
  EXPECT_EQ(get_text(env, "S", "q@name", 0), "deep");
  EXPECT_EQ(get_text(env, "S", "name@3", 0), "<-4>");
}

TEST(EnvPaths, DelimiterIsProcessWideAndReturnsThePrevious) {
  DelimiterGuard restore;
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

TEST(EnvPaths, CreatePath) {
  char buf[8] = "keep";
  EXPECT_EQ(env_create_path(0, buf, "a", nullptr), ENV_TOO_SMALL);
  EXPECT_EQ(env_create_path(sizeof buf, buf, nullptr), ENV_OK);
  EXPECT_STREQ(buf, "keep");
  EXPECT_EQ(env_create_path(sizeof buf, buf, "12345678", nullptr), ENV_TOO_SMALL);
  EXPECT_STREQ(buf, "keep");
  EXPECT_EQ(env_create_path(sizeof buf, buf, "abc", "de", nullptr), ENV_OK);
  EXPECT_STREQ(buf, "abc@de");
  EXPECT_EQ(env_create_path(sizeof buf, buf, "abc", "defg", nullptr), ENV_TOO_SMALL);
  EXPECT_STREQ(buf, "");
  EXPECT_EQ(env_create_path(sizeof buf, buf, "1234567", nullptr), ENV_OK);
}

TEST(EnvPaths, CreateArrayPath) {
  char buf[8] = "keep";
  const char* parts[] = {"ab", "cd", nullptr};
  EXPECT_EQ(env_create_array_path(sizeof buf, buf, parts), ENV_OK);
  EXPECT_STREQ(buf, "ab@cd");
  const char* long_parts[] = {"abc", "defg", nullptr};
  EXPECT_EQ(env_create_array_path(sizeof buf, buf, long_parts), ENV_TOO_SMALL);
  EXPECT_STREQ(buf, "");
  const char* none[] = {nullptr};
  strcpy(buf, "x");
  EXPECT_EQ(env_create_array_path(sizeof buf, buf, none), ENV_OK);
  EXPECT_STREQ(buf, "");
}

TEST(EnvPaths, ManySiblingsKeepOrderAndOccurrences) {
  Env env;
  // Enough siblings for the name index; every third name repeats.
  for (int i = 0; i < 3000; ++i) {
    const std::string name = "n" + std::to_string(i % 1000);
    const int present = env_count_path(env, "S", name.c_str(), 1);
    const std::string path = name + "@" + std::to_string(present + 1);
    ASSERT_EQ(env_put(env, "S", path.c_str(), std::to_string(i).c_str()), ENV_OK);
  }
  EXPECT_EQ(env_count_elements(env, "S", nullptr, 1), 3000);
  EXPECT_EQ(get_text(env, "S", "n7@3"), "2007");
  ASSERT_EQ(env_delete(env, "S", "n7@2"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "n7@2"), "2007");
  ASSERT_EQ(env_delete(env, "S", "n7"), ENV_OK);
  EXPECT_EQ(get_text(env, "S", "n7"), "2007");
  ASSERT_EQ(env_put(env, "S", "n7@2", "new"), ENV_OK);
  char name[8];
  EXPECT_EQ(env_count_elements(env, "S", nullptr, 1), 2999);
  EXPECT_EQ(env_get_pos(env, "S", nullptr, 1, 2999, nullptr, sizeof name, name, 0, nullptr, nullptr),
            ENV_DATA);
  EXPECT_STREQ(name, "n7");
  EXPECT_EQ(get_text(env, "S", "n7@2"), "new");
}

// Random deletions and appends in a long list against a model of the
// occurrence numbers.
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
  for (const auto& [name, values] : model) {
    ASSERT_EQ(env_count_path(env, "S", name.c_str(), 1), static_cast<int>(values.size())) << name;
    for (std::size_t i = 0; i < values.size(); ++i) {
      long value = -1;
      ASSERT_EQ(env_get_long(env, "S", (name + "@" + std::to_string(i + 1)).c_str(), 1, &value), 1);
      EXPECT_EQ(value, values[i]) << name << "@" << i + 1;
    }
  }
}

}  // namespace
