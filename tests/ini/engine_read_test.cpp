// The engine's read side against the measured behaviour of the Windows
// profile functions: one row per rule.
#include <gtest/gtest.h>

#include <string>

#include "ini/ini_text.h"
#include "ini/profile_query.h"

namespace qnutil::ini {
namespace {

using namespace std::string_literals;

std::string get(const std::string& file, const char* section, const char* key,
                const char* fallback = "<d>", unsigned size = 256) {
  const IniText text(file);
  std::string buffer(size, '\x7f');
  const auto length = query_profile_string(&text, section, key, fallback, buffer.data(), size);
  EXPECT_LT(length, size);
  EXPECT_EQ(buffer[length], '\0');
  return buffer.substr(0, length);
}

TEST(ReadRules, ReturnTheWindowsValue) {
  const struct {
    const char* rule;
    std::string file;
    const char *section, *key;
    std::string expected;  // "<d>": the default comes back
  } rows[] = {
      {"CR-only line breaks", "[a]\rk1=v1\rk2=v2\r[b]\nk3=v3\n\r\nk4=v4", "a", "k2", "v2"},
      {"blanks around key and value", "[s]\r\n\tk1\t=\tv1\t\r\n", "s", "k1", "v1"},
      {"inner blanks kept", "[s]\r\n k4 = a b  c \r\n", "s", "k4", "a b  c"},
      {"padded section name", "[  padded sec  ]\r\nk=v\r\n", "padded sec", "k", "v"},
      {"text after ] ignored", "[S]TestKey=TestValue\r\n", "S", "TestKey", "<d>"},
      {"first ] ends the name", "[sec]whoops]\r\nk=v\r\n", "sec", "k", "v"},
      {"no ]: a header", "[SectionName   \r\nTestKey=TestValue\r\n", "SectionName", "TestKey",
       "TestValue"},
      {"first = splits", "[s]\r\na=b=c\r\n", "s", "a", "b=c"},
      {"key with inner space", "[s]\r\nmy key=1\r\nmy  key=2\r\n", "s", "my key", "1"},
      {"line without = reads default", "[s]\r\nname3\r\n", "s", "name3", "<d>"},
      {"bare line hides a later key", "[s]\r\nname3\r\nname3=v\r\n", "s", "name3", "<d>"},
      {"comment cannot be read", "[S]\r\n;key=TestValue\r\n", "S", ";key", "<d>"},
      {"# is no comment", "[s]\r\n#hash=hv\r\n", "s", "#hash", "hv"},
      {"no inline comments", "[s]\r\nk=v ; inline\r\n", "s", "k", "v ; inline"},
      {"; starts a value", "[s]\r\nk=;nocomment\r\n", "s", "k", ";nocomment"},
      {"no top section", "TestKey=TestValue\r\n[S]\r\n", "", "TestKey", "<d>"},
      {"empty section []", "[]\r\nTestKey=TestValue\r\n", "", "TestKey", "TestValue"},
      {"section case-blind", "[Section1]\r\nname1=val1\r\n", "SECTION1", "NaMe1", "val1"},
      {"Latin-1 letters case-blind", "[\xC4\xD6]\r\nk=v\r\n", "\xE4\xF6", "k", "v"},
      {"spaces around parameters", "[padded sec]\r\nk=v\r\n", "  padded sec  ", " k ", "v"},
      {"TAB in section kept", "[SectionName]\r\nTestKey=v\r\n", "\tSectionName", "TestKey", "<d>"},
      {"first duplicate key wins", "[a]\r\nx=1\r\nx=2", "a", "x", "1"},
      {"only the first duplicate section", "[S]\r\n[S]\r\nk=v", "S", "k", "<d>"},
      {"empty value is not the default", "[s]\r\nempty=\r\n", "s", "empty", ""},
      {"missing section", "[s]\r\nk=v\r\n", "t", "k", "<d>"},
      {"empty key name", "[s]\r\n=val_no_key\r\n", "s", "", "val_no_key"},
      {"double quotes stripped", "[s]\r\nk=\"dq\"\r\n", "s", "k", "dq"},
      {"single quotes stripped", "[s]\r\nk='sq'\r\n", "s", "k", "sq"},
      {"spaces inside quotes kept", "[s]\r\nk=  \"   x   \"  \r\n", "s", "k", "   x   "},
      {"mismatched quotes kept", "[s]\r\nk=\"mixed'\r\n", "s", "k", "\"mixed'"},
      {"quoted parts", "[s]\r\nk=\"a\" \"b\"\r\n", "s", "k", "a\" \"b"},
      {"NUL ends a value", "[s]\r\nk=ab\0cd\r\n"s, "s", "k", "ab"},
      {"BOM hides the first header", "\xEF\xBB\xBF[s]\r\nk=v\r\n", "s", "k", "<d>"}};
  for (const auto& row : rows)
    EXPECT_EQ(get(row.file, row.section, row.key), row.expected) << row.rule;
}

// A value, section list or key list that does not fit is cut (at any
// buffer size) and terminated, lists with two terminators; nothing is
// written beyond the buffer. Keys come with values in file order,
// duplicates twice.
TEST(BufferContract, CutsAndTerminates) {
  const IniText text(
      "[section1]\r\nname1=val1\r\n[section2]\r\n[section3]\r\n"
      "[s]\r\nname1=val1\r\nname2=\r\nname3\r\n;c=1\r\nname4=val4\r\n[t]\r\nx=1\r\nx=2\r\n");
  const struct {
    const char *section, *key;
    unsigned size, result;
    std::string bytes;  // the buffer's first `size` bytes
  } rows[] = {{"section1", "name1", 0, 0, ""},
              {"section1", "name1", 1, 0, "\0"s},
              {"section1", "name1", 2, 1, "v\0"s},
              {"section1", "name1", 5, 4, "val1\0"s},
              {nullptr, "ignored", 33, 31, "section1\0section2\0section3\0s\0t\0\0\x7f"s},
              {nullptr, "ignored", 27, 25, "section1\0section2\0section\0\0"s},
              {nullptr, "ignored", 2, 0, "\0\0"s},
              {nullptr, "ignored", 0, 0, ""},
              {"s", nullptr, 16, 14, "name1\0name2\0na\0\0"s},
              {"t", nullptr, 6, 4, "x\0x\0\0\x7f"s}};
  for (const auto& row : rows) {
    std::string buffer(40, '\x7f');
    EXPECT_EQ(query_profile_string(&text, row.section, row.key, "d", buffer.data(), row.size),
              row.result);
    EXPECT_EQ(buffer, row.bytes + std::string(40 - row.size, '\x7f')) << row.size;
  }
  char untouched[4] = {'x', 'x', 'x', 'x'};  // a missing file leaves the second byte alone
  EXPECT_EQ(query_profile_string(nullptr, nullptr, nullptr, "d", untouched, sizeof untouched), 0u);
  EXPECT_EQ(std::string(untouched, 4), "\0xxx"s);
}

TEST(ValueLength, WrapsAt64KCharacters) {
  for (const std::size_t length : {65535u, 65536u, 65537u}) {
    const IniText text("[s]\r\nk=" + std::string(length, 'v') + "\r\n");
    const auto value = find_profile_value(&text, "s", "k");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->size(), length % 65536) << length;
  }
}

TEST(IntRules, ParseTheLeadingInteger) {
  const std::pair<const char*, std::uint32_t> rows[] = {{"-1", 4294967295u},
                                                        {"+1", 1},
                                                        {"4294967296", 0},
                                                        {"42A94967297", 42},
                                                        {"B4294967297", 0},
                                                        {"12.7", 12},
                                                        {"- 5", 0},
                                                        {"\"12\"", 12},
                                                        {"\"-3\"", 4294967293u},
                                                        {"99999999999", 1215752191u},
                                                        {"-2147483649", 2147483647u},
                                                        {"", 77},
                                                        {"\"\"", 77}};
  for (const auto& [value, expected] : rows) {
    const IniText text(std::string("[s]\r\nk=") + value + "\r\n");
    EXPECT_EQ(query_profile_int(&text, "s", "k", 77), expected) << value;
  }
}

}  // namespace
}  // namespace qnutil::ini
