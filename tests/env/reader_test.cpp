// The text reader: character layer, scanner, parser and its messages.
#include "env_fixture.h"

using namespace env_test;

namespace {

// Each text read, with the data text it gives (or "<code>" for a failed get).
TEST(EnvReadValue, ReadsTheText) {
  const struct {
    const char *name, *text, *section, *path, *expected;
  } rows[] = {
      {"EmptyValue", "[S]\na =\n", "S", "a", ""},
      {"TrailingBlanksCut", "[S]\na = x  \t \n", "S", "a", "x"},
      {"NameBlanksCut", "[S]\n   long name \t= v\n", "S", "long name", "v"},
      {"SectionNameTrimmed", "[ \tS x\t ]\na =1\n", "S x", "a", "1"},
      {"TextBeforeFirstSectionIgnored", "junk = 1\n}}\n[S]\na =1\n", "S", "a", "1"},
      {"ValueKeepsSpecials", "[S]\na =1;2=[x]},{\n", "S", "a", "1;2=[x]},{"},
      {"CommentLine", "[S]\n;a =1\nb =2\n", "S", "a", "<-4>"},
      {"IndentedSemicolonIsAName", "[S]\n ;c =2\n", "S", ";c", "2"},
      {"Continuation", "[S]\na =12\\\n34\n", "S", "a", "1234"},
      {"BackslashKept", "[S]\na =12\\x\n", "S", "a", "12\\x"},
      {"ContinuationInName", "[S]\nna\\\nme =1\n", "S", "name", "1"},
      {"NameOverLines", "[S]\nname\nc =1\n", "S", "name\nc", "1"},
      {"CarriageReturnKeptByCallback", "[S]\na =1\r\n", "S", "a", "1\r"},
      {"BlockAfterBlank", "[S]\nb = {\nc =1\n}\n", "S", "b@c", "1"},
      {"NestedBlocks", "[S]\na={b={c={d=deep\n}}}\n", "S", "a@b@c@d", "deep"},
      {"ByteFFEndsTheInput", "[S]\na =1\xff\nb =2\n", "S", "a", "1"},
      {"Duplicates", "[S]\na =1\na =2\n", "S", "a@2", "2"},
      {"TrailingBlanksOnlyFromLastChunk",
       "[S]\na =xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"
       "xxxxxxxxxxxxxxxxxxxxx  \n",
       "S", "a",
       "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"
       "xxxxxxxxxxxxxxxxxxxxx "}};
  for (const auto& row : rows) {
    Env env;
    ASSERT_EQ(read_text(env, row.text), ENV_OK) << row.name;
    EXPECT_EQ(get_text(env, row.section, row.path), row.expected) << row.name;
  }
}

// A syntax error is reported once; the sections before it stay.
TEST(EnvReadError, ReportsAndKeepsEarlierSections) {
  const struct {
    const char *text, *message;
    int sections_kept;
  } rows[] = {{"[A]\na =1\n}\n", "Section waited", 1},
              {"[A]\na =1\n[B]\nb ={\nc =1\n", "Cbracesymbol waited", 1},
              {"[A]\n[B]\nname", "Equal sign waited", 1},
              {"[A]\nx ={\n[B]\n", "Cbracesymbol waited", 0}};
  for (const auto& row : rows) {
    Env env;
    MessageCapture capture;
    EXPECT_EQ(read_text(env, row.text), ENV_SYNTAX);
    ASSERT_EQ(capture.boxes().size(), 1u);
    EXPECT_EQ(capture.boxes()[0].text, row.message);
    EXPECT_EQ(env_count_elements(env, nullptr, nullptr, 1), row.sections_kept) << row.text;
  }
}

TEST(EnvRead, DeepNestingNeedsNoDeepStack) {
  constexpr int kDepth = 100000;
  std::string text = "[S]\n";
  for (int i = 0; i < kDepth; ++i) text += "b={";
  text += "leaf=1\n";
  text += std::string(kDepth, '}');
  Env env;
  ASSERT_EQ(read_text(env, text), ENV_OK);
  EXPECT_EQ(env_check(env, "S", "leaf", 0), ENV_DATA);
  int leaves = 0;
  EXPECT_EQ(
      env_traverse_leafs(
          env,
          [](EnvHandle*, const char*, const char*, void* n) { return ++*static_cast<int*>(n); },
          &leaves),
      ENV_OK);
  EXPECT_EQ(leaves, 1);
}

// Text mode both ways: CR LF reads as LF, a lone CR stays, Ctrl-Z ends
// the file, and lines are written with CR LF on Windows.
TEST(EnvFiles, TextModeLineEnds) {
  qnutil_test::ScratchDir dir;
  const std::string file = dir.file("settings.env");
  for (const std::string end : {"\x1a", "\xff"}) {  // Ctrl-Z, and 0xFF read as a signed char
    qnutil_test::write_file(file, "[S]\r\na =1\r\nlone =a\rb\r\nlast =z" + end + "[T]\n");
    Env env;
    ASSERT_EQ(env_read_file(file.c_str(), env), ENV_OK);
    EXPECT_EQ(get_text(env, "S", "lone"), "a\rb");
    EXPECT_EQ(get_text(env, "S", "last"), "z");
    EXPECT_EQ(env_count_elements(env, nullptr, nullptr, 1), 1);
  }
  Env small;
  ASSERT_EQ(env_put(small, "S", "a@b", "1"), ENV_OK);
  env_write_file(file.c_str(), small);
#ifdef _WIN32
  EXPECT_EQ(qnutil_test::read_file(file), "[S]\r\n  a ={\r\n    b =1\r\n  }\r\n");
#else
  EXPECT_EQ(qnutil_test::read_file(file), "[S]\n  a ={\n    b =1\n  }\n");
#endif
}

}  // namespace
