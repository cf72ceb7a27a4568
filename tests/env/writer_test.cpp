// The writer's layout and read-write round trips.
#include <random>

#include "env_fixture.h"

using env_test::Env;
using env_test::get_text;
using env_test::read_text;
using env_test::write_text;
using qnutil_test::MessageCapture;

namespace {

TEST(EnvWrite, Layout) {
  Env env;
  env_test::put_all(env, {{"Section1", "width", "12.5"}, {"Section1", "list", "1,2,3"},
                          {"Section1", "frame@color", "red"}});
  ASSERT_EQ(env_put_external(env, "Section1", "frame@handle", 7), ENV_OK);  // not written
  env_test::put_all(env, {{"Section2", nullptr, "x"}, {"Section3", "empty@x", "1"}});
  ASSERT_EQ(env_delete(env, "Section3", "empty@x"), ENV_OK);
  EXPECT_EQ(write_text(env),
            "[Section1]\n"
            "  width =12.5\n"
            "  list =1,2,3\n"
            "  frame ={\n"
            "    color =red\n"
            "  }\n"
            "[Section2]\n"
            "[Section3]\n"
            "  empty ={\n"
            "  }\n");
}

TEST(EnvWrite, SubenvironmentIsRefused) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "a", "1"), ENV_OK);
  EnvHandle* sub = env_open_subenv(env, "S", nullptr, 1);
  MessageCapture capture;
  EXPECT_EQ(write_text(sub), "");
  EXPECT_EQ(write_text(nullptr), "");
  EXPECT_EQ(env_test::texts(capture), std::vector<std::string>{"can not write subenv"});
  env_close(sub, 0);
}

TEST(EnvWrite, LongLinesContinueWhereLevelPlusIndexIsAMultipleOf60) {
  Env env;
  std::string value;
  for (int i = 0; i < 150; ++i) value += static_cast<char>('a' + i % 26);
  ASSERT_EQ(env_put(env, "S", "v", value.c_str()), ENV_OK);
  const std::string line = "v =" + value;  // level 3: breaks before indexes 57 and 117
  const std::string expected = "[S]\n  " + line.substr(0, 57) + "\\\n" + line.substr(57, 60) +
                               "\\\n" + line.substr(117) + "\n";
  EXPECT_EQ(write_text(env), expected);
  Env back;
  ASSERT_EQ(read_text(back, expected), ENV_OK);
  EXPECT_EQ(get_text(back, "S", "v"), value);

  const std::string section(70, 's');  // level 1: before the 60th character
  Env sections;
  ASSERT_EQ(env_put(sections, section.c_str(), nullptr, ""), ENV_OK);
  const std::string head = "[" + section + "]";
  EXPECT_EQ(write_text(sections), head.substr(0, 59) + "\\\n" + head.substr(59) + "\n");
}

TEST(EnvWrite, SurroundingBlanksAreWrittenButNotReadBack) {
  Env env;
  ASSERT_EQ(env_put(env, "S", "pad", "  x  "), ENV_OK);
  const std::string text = write_text(env);
  EXPECT_EQ(text, "[S]\n  pad =  x  \n");
  Env back;
  ASSERT_EQ(read_text(back, text), ENV_OK);
  EXPECT_EQ(get_text(back, "S", "pad"), "x");
}

TEST(EnvWrite, WriteFileUsesTextModeAndReadsBack) {
  qnutil_test::ScratchDir dir;
  Env env;
  ASSERT_EQ(env_put(env, "S", "a@b", "1"), ENV_OK);
  const std::string file = dir.file("out.env");
  env_write_file(file.c_str(), env);
  const std::string bytes = qnutil_test::read_file(file);
#ifdef _WIN32
  EXPECT_EQ(bytes, "[S]\r\n  a ={\r\n    b =1\r\n  }\r\n");
#else
  EXPECT_EQ(bytes, "[S]\n  a ={\n    b =1\n  }\n");
#endif
  Env back;
  ASSERT_EQ(env_read_file(file.c_str(), back), ENV_OK);
  EXPECT_EQ(write_text(back), write_text(env));
}

TEST(EnvWrite, UnwritableFileIsReportedWithoutName) {
  qnutil_test::ScratchDir dir;
  Env env;
  MessageCapture capture;
  env_write_file(dir.file("no/such/dir/x.env").c_str(), env);
  EXPECT_EQ(env_test::texts(capture), std::vector<std::string>{"cann't open to write:"});
}

TEST(EnvWrite, DeepTreesAreWrittenIteratively) {
  constexpr int kDepth = 3000;
  std::string path = "b";
  for (int i = 1; i < kDepth; ++i) path += "@b";
  Env env;
  ASSERT_EQ(env_put(env, "S", path.c_str(), "leaf"), ENV_OK);
  const std::string text = write_text(env);
  Env back;
  ASSERT_EQ(read_text(back, text), ENV_OK);
  EXPECT_EQ(get_text(back, "S", path.c_str()), "leaf");
  EXPECT_EQ(write_text(back), text);
}

// Random trees of data elements whose names and texts the format carries:
// names without '=' that neither start nor end with a blank, do not start
// with '[', '}' or ';'; texts without line ends that neither start with a
// blank or '{' nor end with a blank; no backslashes, ';' or bytes 0x1A,
// 0xFF (a ';' may start a continued line).
class TreeGenerator {
 public:
  explicit TreeGenerator(unsigned seed) : random_(seed) {}

  std::string name() { return word(1 + pick(12), true); }
  std::string text() { return pick(8) == 0 ? "" : word(1 + pick(pick(4) == 0 ? 200 : 20), false); }

  void fill(EnvHandle* env, const std::string& section, const std::string& prefix, int depth) {
    const int children = static_cast<int>(pick(6));
    for (int i = 0; i < children; ++i) {
      std::string path = prefix + name();
      const int present = env_count_path(env, section.c_str(), path.c_str(), 1);
      path += "@" + std::to_string(present + 1);
      if (depth < 4 && pick(3) == 0) {
        EnvHandle* sub = env_create_subenv(env, section.c_str(), path.c_str());
        env_close(sub, 0);
        fill(env, section, path + "@", depth + 1);
        if (env_count_elements(env, section.c_str(), path.c_str(), 1) == 0)
          env_put(env, section.c_str(), path.c_str(), "leaf");  // no empty-external leftovers
      } else {
        ASSERT_EQ(env_put(env, section.c_str(), path.c_str(), text().c_str()), ENV_OK);
      }
    }
  }

  unsigned pick(unsigned n) { return std::uniform_int_distribution<unsigned>(0, n - 1)(random_); }

 private:
  char character(bool in_name) {
    static const std::string alphabet =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 \t.,:-_+*#()<>!?/[]}{\"'"
        "\xe4\xf6\xfc\xdf\xc4\xd6\xdc\x80\xfe";
    for (;;) {
      const char c = alphabet[pick(static_cast<unsigned>(alphabet.size()))];
      if (!in_name || c != '=') return c;
    }
  }
  std::string word(unsigned length, bool is_name) {
    std::string w;
    while (w.size() < length) w += character(is_name);
    const std::size_t end = w.find_last_not_of(" \t");
    w.erase(end == std::string::npos ? 0 : end + 1);
    w.erase(0, std::min(w.find_first_not_of(" \t{[}@"), w.size()));
    for (char& c : w)
      if (c == '@' || (c >= '0' && c <= '9' && &c == &w[0])) c = 'x';
    return w.empty() ? "w" : w;
  }

  std::mt19937 random_;
};

// Names avoid the delimiter and a leading digit only so that the
// generator can address them by path; the format itself carries both.
TEST(EnvRoundTrip, GeneratedTreesReadBackIdentically) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    TreeGenerator gen(seed);
    Env env;
    const int sections = 1 + static_cast<int>(gen.pick(4));
    for (int s = 0; s < sections; ++s) {
      std::string section = gen.name();
      for (char& c : section)
        if (c == ']') c = ')';
      ASSERT_EQ(env_put(env, section.c_str(), nullptr, ""), ENV_OK);
      gen.fill(env, section, "", 0);
    }
    const std::string text = write_text(env);
    Env back;
    ASSERT_EQ(read_text(back, text), ENV_OK) << "seed " << seed;
    const std::string again = write_text(back);
    ASSERT_EQ(again, text) << "seed " << seed;
    // Every leaf reads back with the same text at the same walk path.
    struct Compare {
      EnvHandle* other;
      int leaves = 0, mismatches = 0;
    } compare{back};
    ASSERT_EQ(env_traverse_leafs(
                  env,
                  [](EnvHandle* leaf, const char* section, const char* path, void* user) {
                    auto* c = static_cast<Compare*>(user);
                    ++c->leaves;
                    char* mine = nullptr;
                    char* theirs = nullptr;
                    if (env_get_reference(leaf, nullptr, nullptr, 1, &mine) < 0 ||
                        env_get_reference(c->other, section, path, 1, &theirs) < 0 ||
                        std::string(mine) != theirs)
                      ++c->mismatches;
                    return 0;
                  },
                  &compare),
              ENV_OK);
    EXPECT_EQ(compare.mismatches, 0) << "seed " << seed;
  }
}

}  // namespace
