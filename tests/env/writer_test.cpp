// The writer's layout and read-write round trips.
#include <algorithm>
#include <random>

#include "env_fixture.h"

using namespace env_test;

namespace {

// Blanks around a text are written but not read back.
TEST(EnvWrite, Layout) {
  Env env;
  put_all(env, {{"Section1", "width", "12.5"},
                {"Section1", "list", "1,2,3"},
                {"Section1", "frame@color", "red"}});
  ASSERT_EQ(env_put_external(env, "Section1", "frame@handle", 7), ENV_OK);  // not written
  put_all(env,
          {{"Section1", "pad", "  x  "}, {"Section2", nullptr, "x"}, {"Section3", "empty@x", "1"}});
  ASSERT_EQ(env_delete(env, "Section3", "empty@x"), ENV_OK);
  const std::string text = write_text(env);
  EXPECT_EQ(text,
            "[Section1]\n"
            "  width =12.5\n"
            "  list =1,2,3\n"
            "  frame ={\n"
            "    color =red\n"
            "  }\n"
            "  pad =  x  \n"
            "[Section2]\n"
            "[Section3]\n"
            "  empty ={\n"
            "  }\n");
  Env back;
  ASSERT_EQ(read_text(back, text), ENV_OK);
  EXPECT_EQ(get_text(back, "Section1", "pad"), "x");
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

// Random trees of data elements whose names and texts the format carries:
// names without '=' that neither start nor end with a blank, do not start
// with '[', '}' or ';'; texts without line ends that neither start with a
// blank or '{' nor end with a blank; no backslashes, ';' or bytes 0x1A,
// 0xFF (a ';' may start a continued line). Names avoid the delimiter and a
// leading digit only so that paths can address them; the format carries both.
class TreeGenerator {
 public:
  explicit TreeGenerator(unsigned seed) : random_(seed) {}

  unsigned pick(unsigned n) { return std::uniform_int_distribution<unsigned>(0, n - 1)(random_); }
  std::string name() { return word(1 + pick(12), true); }
  std::string text() { return pick(8) == 0 ? "" : word(1 + pick(pick(4) == 0 ? 200 : 20), false); }

  void fill(EnvHandle* env, const std::string& section, const std::string& prefix, int depth) {
    for (int i = static_cast<int>(pick(6)); i > 0; --i) {
      std::string path = prefix + name();
      path += "@" + std::to_string(env_count_path(env, section.c_str(), path.c_str(), 1) + 1);
      if (depth < 4 && pick(3) == 0) {
        env_close(env_create_subenv(env, section.c_str(), path.c_str()), 0);
        fill(env, section, path + "@", depth + 1);
        if (env_count_elements(env, section.c_str(), path.c_str(), 1) == 0)
          env_put(env, section.c_str(), path.c_str(), "leaf");  // no empty-external leftovers
      } else {
        ASSERT_EQ(env_put(env, section.c_str(), path.c_str(), text().c_str()), ENV_OK);
      }
    }
  }

 private:
  std::string word(unsigned length, bool is_name) {
    static const std::string alphabet =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 \t.,:-_+*#()<>!?/[]}{\"'"
        "\xe4\xf6\xfc\xdf\xc4\xd6\xdc\x80\xfe";
    std::string w;
    while (w.size() < length) {
      const char c = alphabet[pick(static_cast<unsigned>(alphabet.size()))];
      if (!is_name || c != '=') w += c;
    }
    const std::size_t end = w.find_last_not_of(" \t");
    w.erase(end == std::string::npos ? 0 : end + 1);
    w.erase(0, std::min(w.find_first_not_of(" \t{[}@"), w.size()));
    if (!w.empty() && w[0] >= '0' && w[0] <= '9') w[0] = 'x';
    return w.empty() ? "w" : w;
  }

  std::mt19937 random_;
};

int QNUTIL_CALL expect_same_leaf(EnvHandle* leaf, const char* section, const char* path,
                                 void* other) {
  char* mine = nullptr;
  char* theirs = nullptr;
  if (env_get_reference(leaf, nullptr, nullptr, 1, &mine) < 0 ||
      env_get_reference(static_cast<EnvHandle*>(other), section, path, 1, &theirs) < 0 ||
      std::string(mine) != theirs)
    ADD_FAILURE() << section << " " << path;
  return 0;
}

// Written, read back and written again gives the same text, and every leaf
// reads back with the same text at the same walk path.
TEST(EnvRoundTrip, GeneratedTreesReadBackIdentically) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    TreeGenerator gen(seed);
    Env env;
    for (int s = 1 + static_cast<int>(gen.pick(4)); s > 0; --s) {
      std::string section = gen.name();
      std::replace(section.begin(), section.end(), ']', ')');
      ASSERT_EQ(env_put(env, section.c_str(), nullptr, ""), ENV_OK);
      gen.fill(env, section, "", 0);
    }
    const std::string text = write_text(env);
    Env back;
    ASSERT_EQ(read_text(back, text), ENV_OK);
    ASSERT_EQ(write_text(back), text);
    EXPECT_EQ(env_traverse_leafs(env, expect_same_leaf, static_cast<EnvHandle*>(back)), ENV_OK);
  }
}

}  // namespace
