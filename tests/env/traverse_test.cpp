// Iteration, callback walks, name listings, sink and block copies.
#include "env_fixture.h"

using namespace env_test;

namespace {

// Every visit as "section|path|text".
using Visits = std::vector<std::string>;

void QNUTIL_CALL record(EnvHandle* sub, const char* section, const char* path, void* user) {
  char text[64] = "";
  env_get(sub, nullptr, nullptr, 1, sizeof text, text);
  static_cast<Visits*>(user)->push_back(std::string(section ? section : "<null>") + "|" +
                                        (path ? path : "<null>") + "|" + text);
}

// The whole iteration as " kind name[=text]" items, then the code that
// ended it and what one more env_get_next says.
std::string iterate(EnvHandle* env, const char* section, int name_size = 8, long* id = nullptr) {
  char name[8], value[8];
  std::string out;
  int kind =
      env_get_first(env, section, nullptr, 1, id, name_size, name, sizeof value, value, nullptr);
  for (; kind == ENV_DATA || kind == ENV_BLOCK;
       kind = env_get_next(name_size, name, sizeof value, value, nullptr))
    out += " " + std::to_string(kind) + " " + name +
           (kind == ENV_DATA ? "=" + std::string(value) : "");
  const int after = env_get_next(name_size, name, 0, nullptr, nullptr);
  return out + " " + std::to_string(kind) + " " + std::to_string(after);
}

TEST(EnvIterate, GetFirstAndNext) {
  Env env(5);
  ASSERT_EQ(read_text(env, "[S]\na =1\nb ={\nx =2\n}\na =3\n[E]\n"), ENV_OK);
  long id = 0;
  EXPECT_EQ(iterate(env, "S", 8, &id), " -1 a=1 -2 b -1 a=3 -4 -4");
  EXPECT_EQ(id, 5);
  EXPECT_EQ(iterate(env, "E"), " -4 -4");
  EXPECT_EQ(iterate(env, nullptr), " -2 S -2 E -4 -4");
  // A name that does not fit ends the iteration.
  ASSERT_EQ(read_text(env, "[L]\na =1\nlongname =2\nc =3\n"), ENV_OK);
  EXPECT_EQ(iterate(env, "L", 4), " -1 a=1 -7 -4");
}

// Walk paths carry occurrence numbers; missing, empty or data anchors give
// the block code.
TEST(EnvTraverse, VisitsTheBlocksElements) {
  Env env;
  ASSERT_EQ(read_text(env, "[S]\nx =1\ny =2\nx =3\n[T]\nb ={\nc =4\n}\nd =1\ne ={\n}\n"), ENV_OK);
  Visits visits;
  EXPECT_EQ(env_traverse(env, "S", nullptr, 1, record, &visits), ENV_OK);
  EXPECT_EQ(env_traverse(env, "T", "b", 1, record, &visits), ENV_OK);
  EXPECT_EQ(env_traverse(env, nullptr, nullptr, 1, record, &visits), ENV_OK);
  EXPECT_EQ(visits,
            (Visits{"S|x@1|1", "S|y@1|2", "S|x@2|3", "T|b@c@1|4", "S|<null>|", "T|<null>|"}));
  for (const char* path : {"e", "none", "d"})
    EXPECT_EQ(env_traverse(env, "T", path, 1, record, &visits), ENV_BLOCK) << path;
  EXPECT_EQ(env_traverse(nullptr, "S", nullptr, 1, record, &visits), ENV_ERROR);
  MessageCapture quiet;
  EXPECT_EQ(env_traverse(env, "S", "@", 1, record, &visits), ENV_BAD_PATH);
  EXPECT_EQ(visits.size(), 6u);
}

constexpr char kOldDestination[] = "[S]\na =old\nb ={\nc =old c\n}\n";

class EnvSink : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(read_text(src_, "[S]\na =new\nb ={\nc =new c\n}\nonly =src\n"), ENV_OK);
    ASSERT_EQ(env_put_external(src_, "S", "ext", 3), ENV_OK);
    ASSERT_EQ(read_text(dst_, kOldDestination), ENV_OK);
  }
  Env src_, dst_;
};

// Each mode with what dst holds afterwards; externals are never copied.
TEST_F(EnvSink, CopiesLeaves) {
  const std::pair<int, const char*> modes[] = {
      {0, "[S]\n  a =old\n  b ={\n    c =old c\n  }\n  only =src\n"},  // keep existing
      {1,
       "[S]\n  a =old\n  b ={\n    c =old c\n    c =new c\n  }\n"  // append
       "  a =new\n  only =src\n"},
      {2, "[S]\n  a =new\n  b ={\n    c =new c\n  }\n  only =src\n"},  // overwrite
      {3, "[S]\n  a =new\n  b ={\n    c =new c\n  }\n"}};              // only existing
  for (const auto& [mode, written] : modes) {
    Env dst;
    ASSERT_EQ(read_text(dst, kOldDestination), ENV_OK);
    EXPECT_EQ(env_sink(dst, src_, mode), ENV_OK);
    EXPECT_EQ(write_text(dst), written) << mode;
    EXPECT_EQ(env_check(dst, "S", "ext", 1), ENV_NOT_FOUND);
  }
}

TEST_F(EnvSink, BadModeAndLongTexts) {
  MessageCapture capture;
  EXPECT_EQ(env_sink(dst_, src_, 4), ENV_ERROR);
  EXPECT_EQ(texts(capture), std::vector<std::string>{"switch error!"});
  ASSERT_EQ(env_put(src_, "S", "a", std::string(255, 'x').c_str()), ENV_OK);
  EXPECT_EQ(env_sink(dst_, src_, 2), ENV_ERROR);  // the copy stops at the long text
  EXPECT_EQ(get_text(dst_, "S", "b@c"), "old c");
}

TEST_F(EnvSink, CopyBlock) {
  ASSERT_EQ(read_text(src_, "[S]\nb ={\nc =1\nd ={\ne =2\n}\n}\n"), ENV_OK);
  Env target;
  EXPECT_EQ(env_copy_block(target, src_, "S", "b", 2), ENV_OK);
  EXPECT_EQ(write_text(target), "[S]\n  b ={\n    c =1\n    d ={\n      e =2\n    }\n  }\n");
  EXPECT_EQ(env_copy_block(target, src_, "S", "missing", 2), ENV_ERROR);
  EXPECT_EQ(env_close(src_.release(), 0), ENV_OK);  // no sub-environment left open
  EXPECT_EQ(env_close(target.release(), 0), ENV_OK);
}

}  // namespace
