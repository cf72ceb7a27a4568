// The engine's read side against the measured behaviour of the Windows
// profile functions: one row per rule.
#include <gtest/gtest.h>

#include <string>

#include "ini/ini_text.h"
#include "ini/profile_query.h"

namespace qnutil::ini {
namespace {

using namespace std::string_literals;

struct ReadCase {
  const char* rule;
  std::string file;
  const char* section;
  const char* key;
  std::string expected;  // "<d>": the default comes back
};

std::string get(const std::string& file, const char* section, const char* key,
                const char* fallback = "<d>", unsigned size = 256) {
  const IniText text(file);
  std::string buffer(size, '\x7f');
  const auto length = query_profile_string(&text, section, key, fallback, buffer.data(), size);
  EXPECT_LT(length, size);
  EXPECT_EQ(buffer[length], '\0');
  return buffer.substr(0, length);
}

class ReadRule : public testing::TestWithParam<ReadCase> {};

TEST_P(ReadRule, ReturnsTheWindowsValue) {
  const ReadCase& c = GetParam();
  EXPECT_EQ(get(c.file, c.section, c.key), c.expected) << c.rule;
}

INSTANTIATE_TEST_SUITE_P(
    Windows, ReadRule,
    testing::Values(
        ReadCase{"CR-only line breaks", "[a]\rk1=v1\rk2=v2\r[b]\nk3=v3\n\r\nk4=v4", "a", "k2", "v2"},
        ReadCase{"last line without break", "[a]\rk1=v1\rk2=v2\r[b]\nk3=v3\n\r\nk4=v4",
                 "b", "k4", "v4"},
        ReadCase{"blanks around key and value", "[s]\r\n\tk1\t=\tv1\t\r\n", "s", "k1", "v1"},
        ReadCase{"inner blanks kept", "[s]\r\n k4 = a b  c \r\n", "s", "k4", "a b  c"},
        ReadCase{"VT is a blank", "[s]\r\n\vk\v=\vv\v\r\n", "s", "k", "v"},
        ReadCase{"padded section name", "[  padded sec  ]\r\nk=v\r\n", "padded sec", "k", "v"},
        ReadCase{"text after ] ignored", "[S]TestKey=TestValue\r\n", "S", "TestKey", "<d>"},
        ReadCase{"first ] ends the name", "[sec]whoops]\r\nk=v\r\n", "sec", "k", "v"},
        ReadCase{"no ]: a header", "[SectionName   \r\nTestKey=TestValue\r\n",
                 "SectionName", "TestKey", "TestValue"},
        ReadCase{"no [ no header", "[a]\r\nSectionName]\r\nk=v\r\n", "SectionName", "k", "<d>"},
        ReadCase{"[ inside a name", "[[sec]\r\nk=v\r\n", "[sec", "k", "v"},
        ReadCase{"; inside brackets", "[;section]\r\nk=v\r\n", ";section", "k", "v"},
        ReadCase{"first = splits", "[s]\r\na=b=c\r\n", "s", "a", "b=c"},
        ReadCase{"key with inner space", "[s]\r\nmy key=1\r\nmy  key=2\r\n", "s", "my key", "1"},
        ReadCase{"inner spaces count", "[s]\r\nmy key=1\r\nmy  key=2\r\n", "s", "my  key", "2"},
        ReadCase{"no key without its space", "[s]\r\nmy key=1\r\n", "s", "mykey", "<d>"},
        ReadCase{"line without = reads default", "[s]\r\nname3\r\n", "s", "name3", "<d>"},
        ReadCase{"bare line hides a later key", "[s]\r\nname3\r\nname3=v\r\n", "s", "name3", "<d>"},
        ReadCase{"comment cannot be read", "[S]\r\n;key=TestValue\r\n", "S", ";key", "<d>"},
        ReadCase{"comment is no key", "[S]\r\n;key=TestValue\r\n", "S", "key", "<d>"},
        ReadCase{"indented comment", "[S]\r\n \t;key=TestValue\r\n", "S", ";key", "<d>"},
        ReadCase{"# is no comment", "[s]\r\n#hash=hv\r\n", "s", "#hash", "hv"},
        ReadCase{"no inline comments", "[s]\r\nk=v ; inline\r\n", "s", "k", "v ; inline"},
        ReadCase{"; starts a value", "[s]\r\nk=;nocomment\r\n", "s", "k", ";nocomment"},
        ReadCase{"no top section", "TestKey=TestValue\r\n[S]\r\n", "", "TestKey", "<d>"},
        ReadCase{"no top section, blank", "TestKey=TestValue\r\n[S]\r\n", " ", "TestKey", "<d>"},
        ReadCase{"empty section []", "[]\r\nTestKey=TestValue\r\n", "", "TestKey", "TestValue"},
        ReadCase{"section case-blind", "[Section1]\r\nname1=val1\r\n", "SECTION1", "NaMe1", "val1"},
        ReadCase{"value keeps case", "[s]\r\nk=MiXeD\r\n", "s", "K", "MiXeD"},
        ReadCase{"Latin-1 letters case-blind", "[\xC4\xD6]\r\nk=v\r\n", "\xE4\xF6", "k", "v"},
        ReadCase{"spaces around parameters", "[padded sec]\r\nk=v\r\n", "  padded sec  ", " k ", "v"},
        ReadCase{"TAB in section kept", "[SectionName]\r\nTestKey=v\r\n",
                 "\tSectionName", "TestKey", "<d>"},
        ReadCase{"TAB in key kept", "[SectionName]\r\nTestKey=v\r\n",
                 "SectionName", "TestKey\t", "<d>"},
        ReadCase{"quoted key name literal", "[S]\r\n\"TestKey\"=v\r\n", "S", "\"TestKey\"", "v"},
        ReadCase{"first duplicate key wins", "[a]\r\nx=1\r\nx=2", "a", "x", "1"},
        ReadCase{"only the first duplicate section", "[S]\r\n[S]\r\nk=v", "S", "k", "<d>"},
        ReadCase{"empty value is not the default", "[s]\r\nempty=\r\n", "s", "empty", ""},
        ReadCase{"blank value is empty", "[s]\r\nspaces=   \r\n", "s", "spaces", ""},
        ReadCase{"missing section", "[s]\r\nk=v\r\n", "t", "k", "<d>"},
        ReadCase{"empty key name", "[s]\r\n=val_no_key\r\n", "s", "", "val_no_key"},
        ReadCase{"no empty key", "[s]\r\nk=v\r\n", "s", "", "<d>"},
        ReadCase{"double quotes stripped", "[s]\r\nk=\"dq\"\r\n", "s", "k", "dq"},
        ReadCase{"single quotes stripped", "[s]\r\nk='sq'\r\n", "s", "k", "sq"},
        ReadCase{"spaces inside quotes kept", "[s]\r\nk=  \"   x   \"  \r\n", "s", "k", "   x   "},
        ReadCase{"outermost pair only", "[s]\r\nk=\"'x'\"\r\n", "s", "k", "'x'"},
        ReadCase{"mismatched quotes kept", "[s]\r\nk=\"mixed'\r\n", "s", "k", "\"mixed'"},
        ReadCase{"opening quote only", "[s]\r\nk=\"open\r\n", "s", "k", "\"open"},
        ReadCase{"closing quote only", "[s]\r\nk=close\"\r\n", "s", "k", "close\""},
        ReadCase{"single quote character", "[s]\r\nk=\"\r\n", "s", "k", "\""},
        ReadCase{"empty quotes", "[s]\r\nk=\"\"\r\n", "s", "k", ""},
        ReadCase{"quoted parts", "[s]\r\nk=\"a\" \"b\"\r\n", "s", "k", "a\" \"b"},
        ReadCase{"NUL ends a value", "[s]\r\nk=ab\0cd\r\n"s, "s", "k", "ab"},
        ReadCase{"BOM hides the first header", "\xEF\xBB\xBF[s]\r\nk=v\r\n", "s", "k", "<d>"}),
    [](const testing::TestParamInfo<ReadCase>& info) { return "rule" + std::to_string(info.index); });

// The default loses trailing spaces only and is cut like a value; a
// missing file reads the defaults.
TEST(Defaults, ComeBackTrimmedAndCut) {
  EXPECT_EQ(get("", "s", "k", "   default   "), "   default");
  EXPECT_EQ(get("", "s", "k", "one two  "), "one two");
  EXPECT_EQ(get("", "s", "k", "\tdefault\t"), "\tdefault\t");
  EXPECT_EQ(get("", "s", "k", "\"quoted\""), "\"quoted\"");
  EXPECT_EQ(get("", "s", "k", nullptr), "");
  EXPECT_EQ(get("", "s", "k", "default", 4), "def");
  char buffer[16];
  EXPECT_EQ(query_profile_string(nullptr, "s", "k", "dflt", buffer, sizeof buffer), 4u);
  EXPECT_STREQ(buffer, "dflt");
  EXPECT_EQ(query_profile_int(nullptr, "s", "k", 17), 17u);
  const IniText text("[s]\r\nk=5\r\n");
  EXPECT_EQ(query_profile_int(&text, "s", "missing", -1), 4294967295u);
  EXPECT_EQ(query_profile_int(&text, "s", "k", -1), 5u);
}

// Every buffer size from 0 to the value's length + 2: the copy is cut to
// size - 1 bytes and terminated; bytes beyond the buffer stay untouched.
TEST(BufferContract, SingleValueAtEverySize) {
  const IniText text("[section1]\r\nname1=val1\r\n");
  for (unsigned size = 0; size <= 6; ++size) {
    std::string buffer(8, '\x7f');
    const unsigned length = size == 0 ? 0 : std::min(size - 1, 4u);
    EXPECT_EQ(query_profile_string(&text, "section1", "name1", "d", buffer.data(), size), length);
    std::string expected(8, '\x7f');
    if (size > 0) expected.replace(0, length + 1, std::string("val1", length) + '\0');
    EXPECT_EQ(buffer, expected) << size;
  }
}

// A section list that does not fit is cut and ends in two terminators;
// nothing is written beyond the buffer.
TEST(SectionList, IsCutWithTwoTerminators) {
  const IniText text("[section1]\r\nk=v\r\n[section2]\r\n[section3]\r\n");
  const struct {
    unsigned size, result;
    std::string bytes;  // the buffer's first `size` bytes
  } rows[] = {{29, 27, "section1\0section2\0section3\0\0\x7f"s},
              {28, 26, "section1\0section2\0section3\0\0"s},
              {27, 25, "section1\0section2\0section\0\0"s},
              {16, 14, "section1\0secti\0\0"s},
              {3, 1, "s\0\0"s}, {2, 0, "\0\0"s}, {1, 0, "\0"s}, {0, 0, ""}};
  for (const auto& row : rows) {
    std::string buffer(40, '\x7f');
    EXPECT_EQ(query_profile_string(&text, nullptr, "ignored", "d", buffer.data(), row.size),
              row.result);
    EXPECT_EQ(buffer, row.bytes + std::string(40 - row.size, '\x7f')) << row.size;
  }
}

// Keys with values in file order, duplicates twice; a missing file leaves
// the buffer's second byte alone.
TEST(KeyList, ListsKeysWithValues) {
  const IniText text(
      "[s]\r\nname1=val1\r\nname2=\r\nname3\r\n;c=1\r\nname4=val4\r\n[t]\r\nx=1\r\nx=2\r\n");
  char buffer[100];
  EXPECT_EQ(query_profile_string(&text, "S", nullptr, "", buffer, sizeof buffer), 18u);
  EXPECT_EQ(std::string(buffer, 19), "name1\0name2\0name4\0\0"s);
  EXPECT_EQ(query_profile_string(&text, "s", nullptr, "", buffer, 16), 14u);
  EXPECT_EQ(std::string(buffer, 16), "name1\0name2\0na\0\0"s);
  EXPECT_EQ(query_profile_string(&text, "t", nullptr, "", buffer, sizeof buffer), 4u);
  EXPECT_EQ(std::string(buffer, 5), "x\0x\0\0"s);
  char untouched[4] = {'x', 'x', 'x', 'x'};
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

struct IntCase {
  const char* value;
  std::uint32_t expected;
};

class IntRule : public testing::TestWithParam<IntCase> {};

TEST_P(IntRule, ParsesTheLeadingInteger) {
  const IntCase& c = GetParam();
  const IniText text(std::string("[s]\r\nk=") + c.value + "\r\n");
  EXPECT_EQ(query_profile_int(&text, "s", "k", 77), c.expected) << c.value;
}

INSTANTIATE_TEST_SUITE_P(
    Windows, IntRule,
    testing::Values(IntCase{"-1", 4294967295u}, IntCase{"1", 1}, IntCase{"+1", 1},
                    IntCase{"4294967296", 0}, IntCase{"4294967297", 1},
                    IntCase{"-4294967297", 4294967295u}, IntCase{"42A94967297", 42},
                    IntCase{"B4294967297", 0}, IntCase{"102abc", 102}, IntCase{"12.7", 12},
                    IntCase{"1 2", 1}, IntCase{"- 5", 0}, IntCase{"+-5", 0}, IntCase{"-0", 0},
                    IntCase{"\"12\"", 12}, IntCase{"'13'", 13}, IntCase{"\"-3\"", 4294967293u},
                    IntCase{"\"  7\"", 7}, IntCase{"99999999999", 1215752191u},
                    IntCase{"2147483648", 2147483648u}, IntCase{"-2147483649", 2147483647u},
                    IntCase{"", 77}, IntCase{"   ", 77}, IntCase{"\"\"", 77}));

}  // namespace
}  // namespace qnutil::ini
