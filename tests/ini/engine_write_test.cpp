// The engine's write side: exact file images after each edit, as Windows
// produces them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ini/ini_text.h"
#include "ini/profile_edit.h"

namespace qnutil::ini {
namespace {

using namespace std::string_literals;

struct Put {
  const char *section, *key, *value;
};

TEST(WriteRules, GiveTheWindowsFileImage) {
  const struct {
    const char* rule;
    std::string before;
    std::vector<Put> puts;
    std::string after;
  } rows[] = {
      {"new file", "", {{"App", "key", "val"}}, "[App]\r\nkey=val\r\n"},
      {"new section appended without blank line",
       "[App2]\r\nkey4=string4\r\n",
       {{"App3", "key5", "string5"}},
       "[App2]\r\nkey4=string4\r\n[App3]\r\nkey5=string5\r\n"},
      {"missing final break added first, NULs kept",
       "Data \0 before \0 first \0 section"s,
       {{"section1", "key1", "string1"}},
       "Data \0 before \0 first \0 section\r\n[section1]\r\nkey1=string1\r\n"s},
      {"new keys after the last key, before trailing comments",
       ";comment0\r\n[S]\r\n;comment1\r\nb=value\r\n;comment2\r\na=value\r\n",
       {{"S", "z", ""}, {"S", ";x", ""}, {"S", "y", ""}, {"S", "a", ""}, {"S", "b", ""}},
       ";comment0\r\n[S]\r\n;comment1\r\nb=\r\n;comment2\r\na=\r\nz=\r\ny=\r\n;x=\r\n"},
      {"comment keys pile up after the last key",
       "",
       {{"S", "z", ""}, {"S", ";y", ""}, {"S", "a", ""}, {"S", ";b", ""}, {"S", ";c", ""}},
       "[S]\r\nz=\r\na=\r\n;c=\r\n;b=\r\n;y=\r\n"},
      {"new key in a section followed by another",
       "[a]\r\nx=1\r\n\r\n[b]\r\ny=2\r\n",
       {{"A", "new", "3"}},
       "[a]\r\nx=1\r\nnew=3\r\n\r\n[b]\r\ny=2\r\n"},
      {"new key in an empty section", "[a]\r\n[b]\r\n", {{"a", "k", "v"}}, "[a]\r\nk=v\r\n[b]\r\n"},
      {"new key after a last line without break",
       "[a]\r\nx=1",
       {{"a", "k", "v"}},
       "[a]\r\nx=1\r\nk=v\r\n"},
      {"replacement keeps the spelling",
       "[App]\r\nkey=old\r\n",
       {{"APP", "KEY", "new"}},
       "[App]\r\nkey=new\r\n"},
      {"replacement keeps the line's own break and spacing",
       "[S]\nk = old value  \nj=1\n",
       {{"S", "k", "new"}},
       "[S]\nk = new\nj=1\n"},
      {"only the first duplicate replaced",
       "[a]\r\nx=1\r\nx=2\r\n",
       {{"a", "x", "9"}},
       "[a]\r\nx=9\r\nx=2\r\n"},
      {"names lose spaces only",
       "",
       {{" sec ", " key ", "v"}, {"\tsec\t", "k", "v"}},
       "[sec]\r\nkey=v\r\n[\tsec\t]\r\nk=v\r\n"},
      {"a line without = gains its value",
       "[s]\r\nbare  \r\nk=1\r\n",
       {{"s", "BARE", "v"}},
       "[s]\r\nbare=v\r\nk=1\r\n"},
      {"delete a key keeps the header",
       "[App3]\r\nkey5=string5\r\n",
       {{"App3", "key5", nullptr}},
       "[App3]\r\n"},
      {"delete a section, value ignored",
       "[App1]\r\nkey1=string1\r\nkey2=string2\r\n[App2]\r\nkey3=string3\r\n",
       {{"App1", nullptr, "string1"}},
       "[App2]\r\nkey3=string3\r\n"},
      {"deleted sections leave their comments",
       ";comment0\r\n[S]\r\n;comment1\r\n[S2]\r\n;comment2\r\n",
       {{"S", nullptr, nullptr}, {"S2", nullptr, nullptr}},
       ";comment0\r\n;comment1\r\n;comment2\r\n"},
      {"untouched lines byte for byte",
       "top=1\n[a]  trailing\n\n  x = 1 \n; note\r\n[b\ny=2\0z\r\n"s,
       {{"a", "x", "2"}},
       "top=1\n[a]  trailing\n\n  x = 2\n; note\r\n[b\ny=2\0z\r\n"s}};
  for (const auto& row : rows) {
    std::string bytes = row.before;
    for (const Put& put : row.puts)
      bytes = edit_profile(IniText(bytes), put.section, put.key, put.value);
    EXPECT_EQ(bytes, row.after) << row.rule;
  }
}

}  // namespace
}  // namespace qnutil::ini
