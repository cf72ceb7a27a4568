// The writer's layout.
#include "env_fixture.h"

using namespace env_test;

namespace {

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

}  // namespace
