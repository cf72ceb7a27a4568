// Handles, lifetimes, sub-environments, fallback chains, deletion and
// counting.
#include "env_fixture.h"

using namespace env_test;

namespace {

// Null handles, bad paths and a null section are reported from the unit.
TEST(EnvHandles, BadArgumentsAreReportedAndRefused) {
  Env env;
  MessageCapture capture;
  EXPECT_EQ(env_close(nullptr, 0), ENV_ERROR);
  EXPECT_EQ(env_check(nullptr, "S", "a", 1), ENV_ERROR);
  EXPECT_EQ(env_put(nullptr, "S", "a", "1"), ENV_ERROR);
  EXPECT_EQ(env_open_subenv(nullptr, "S", nullptr, 1), nullptr);
  EXPECT_EQ(env_put(env, "S", "@@@", "x"), ENV_OK);  // stores nothing
  EXPECT_EQ(env_count_elements(env, nullptr, nullptr, 1), 0);
  EXPECT_EQ(env_check(env, "S", "", 1), ENV_BAD_PATH);
  EXPECT_EQ(env_put(env, nullptr, "a", "x"), ENV_ERROR);
  EXPECT_EQ(texts(capture), (std::vector<std::string>{
                                "Nil parametr", "Nil parametr", "Nil parametr", "Nil parametr",
                                "Bad Path was given", "Bad Path was given", "bypass Nil section"}));
  for (const auto& box : capture.boxes())
    EXPECT_EQ(box.caption.rfind("MESSAGE in \"qnutilenv\" line ", 0), 0u) << box.caption;
}

TEST(EnvHandles, FallbackChainAnswersWithItsEnvId) {
  Env bottom(1);
  ASSERT_EQ(env_put(bottom, "S", "deep", "x"), ENV_OK);
  Env base(3, bottom);
  put_all(base, {{"S", "only@base", "b"}, {"S", "both", "from base"}});
  Env top(7, base);
  ASSERT_EQ(env_put(top, "S", "both", "from top"), ENV_OK);
  char buf[32];
  EXPECT_EQ(env_get(top, "S", "only@base", 1, sizeof buf, buf), 3);
  EXPECT_STREQ(buf, "b");
  EXPECT_EQ(env_get(top, "S", "both", 1, sizeof buf, buf), 7);
  EXPECT_STREQ(buf, "from top");
  char* ref = nullptr;
  EXPECT_EQ(env_get_reference(top, "S", "deep", 1, &ref), 1);
  EXPECT_STREQ(ref, "x");
  long value = 0;
  EXPECT_EQ(env_get_long(top, "T", "x", 1, &value), ENV_NOT_FOUND);
  // The fallback is asked only when section and path are both given.
  EXPECT_EQ(env_check(top, "S", "only", 1), ENV_NOT_FOUND);
  EnvHandle* sub = env_open_subenv(top, "S", nullptr, 1);
  EXPECT_EQ(env_get(sub, "S", "only@base", 1, sizeof buf, buf), 3);
  env_close(sub, 0);
}

// Each row: section, path, direct, what env_check and env_count_elements say.
TEST(EnvCheck, ReportsTheElementKindAndCount) {
  Env env;
  put_all(env, {{"S", "data", "1"}, {"S", "outer@inner@leaf", "2"}, {"Empty", nullptr, "ignored"}});
  ASSERT_EQ(env_put_external(env, "S", "ext", 9), ENV_OK);
  MessageCapture quiet;
  const struct {
    const char *section, *path;
    int direct, kind, count;
  } rows[] = {{nullptr, nullptr, 1, ENV_BLOCK, 2},  // sections exist
              {"S", nullptr, 1, ENV_BLOCK, 3},        {"Empty", nullptr, 1, ENV_BLOCK, 0},
              {"Nope", nullptr, 1, ENV_NOT_FOUND, 0}, {"S", "data", 1, ENV_DATA, 0},
              {"S", "ext", 1, ENV_EXTERNAL, 0},       {"S", "outer", 1, ENV_BLOCK, 1},
              {"S", "leaf", 1, ENV_NOT_FOUND, 0},  // two levels down
              {"S", "leaf", 0, ENV_DATA, 0},       // breadth first finds it
              {"S", "inner", 0, ENV_BLOCK, 1},        {"S", "inner@leaf", 0, ENV_DATA, 0},
              {"S", "data@2", 1, ENV_NOT_FOUND, 0},   {"S", "@@", 1, ENV_BAD_PATH, ENV_BAD_PATH},
              {"S", "data@1@x", 1, ENV_NOT_FOUND, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    EXPECT_EQ(env_check(env, row.section, row.path, row.direct), row.kind);
    EXPECT_EQ(env_count_elements(env, row.section, row.path, row.direct), row.count);
  }
  // Data put over a block replaces its whole subtree.
  ASSERT_EQ(env_put(env, "S", "outer", "now data"), ENV_OK);
  EXPECT_EQ(env_check(env, "S", "outer", 1), ENV_DATA);
}

TEST(EnvHandles, InsertBefore) {
  Env env;
  put_all(env, {{"S", "a", "1"}, {"S", "b", "2"}, {"T", "c", "3"}});
  EXPECT_EQ(env_insert_before(env, "S", "b", "new"), ENV_OK);
  char names[64];
  ASSERT_EQ(env_list_elem_names(env, "S", nullptr, 1, ',', sizeof names, names), ENV_OK);
  EXPECT_STREQ(names, ",a,new,b,");
  EXPECT_EQ(env_check(env, "S", "new", 1), ENV_EXTERNAL);
  EXPECT_EQ(env_insert_before(env, "T", nullptr, "First"), ENV_OK);
  ASSERT_EQ(env_list_elem_names(env, nullptr, nullptr, 1, ';', sizeof names, names), ENV_OK);
  EXPECT_STREQ(names, ";S;First;T;");
  EXPECT_EQ(env_insert_before(env, "Missing", nullptr, "X"), ENV_OK);
  EXPECT_EQ(env_count_elements(env, nullptr, nullptr, 1), 3);
  EXPECT_EQ(env_insert_before(env, "S", "zz", "X"), ENV_NOT_FOUND);
  MessageCapture quiet;
  EXPECT_EQ(env_insert_before(env, "S", "@", "X"), ENV_ERROR);
}

}  // namespace
