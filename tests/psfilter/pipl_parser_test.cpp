// The property-list reader over hand-built resources: which lists a host
// accepts, what it takes from them, and that no claimed length leads it past
// the resource's end. What real modules carry is pinned down by the
// discovery tests; these rows are the cases no module can show.
#include "psfilter/pipl_parser.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "psfilter/four_char_code.h"

namespace {

using qnutil::psfilter::four_char_code;
using qnutil::psfilter::PiplTexts;
using qnutil::psfilter::read_pipl;

constexpr std::uint32_t kX86 = four_char_code("wx86");
constexpr std::uint32_t kX64 = four_char_code("8664");

// Property-list bytes as a resource compiler lays them out: little-endian
// integers, four-character codes byte-reversed, data padded to four bytes.
std::string code(const char (&c)[5]) { return {c[3], c[2], c[1], c[0]}; }
std::string u32(std::uint32_t v) { return {char(v), char(v >> 8), char(v >> 16), char(v >> 24)}; }
std::string padded(std::string data) {
  data.resize((data.size() + 3) / 4 * 4, '\0');
  return data;
}

struct Pipl {
  std::string properties;
  std::uint32_t count = 0;

  // `declared` < 0 declares the data's real size.
  Pipl& add(const char (&key)[5], const std::string& data, std::int64_t declared = -1) {
    properties += code("8BIM") + code(key) + u32(0) +
                  u32(std::uint32_t(declared < 0 ? data.size() : declared)) + data;
    ++count;
    return *this;
  }
  Pipl& entry(const char (&key)[5], const std::string& name) {
    return add(key, padded(name + '\0'));
  }
  Pipl& pascal(const char (&key)[5], const std::string& text) {
    return add(key, padded(char(text.size()) + text));
  }
  Pipl& version(std::uint32_t major, std::uint32_t minor) {
    return add("vers", u32(major << 16 | minor));
  }
  // The resource: leading word 1, list version, property count.
  std::string bytes(std::uint32_t listVersion = 0, std::int64_t claimed = -1) const {
    return std::string("\1\0", 2) + u32(listVersion) +
           u32(std::uint32_t(claimed < 0 ? count : claimed)) + properties;
  }
};

// A complete filter list: kind, version 4.0, entry, category and name.
Pipl filter(const char (&entryKey)[5], const std::string& entryName = "PluginMain") {
  return Pipl()
      .add("kind", code("8BFM"))
      .version(4, 0)
      .entry(entryKey, entryName)
      .pascal("catg", "Tests")
      .pascal("name", "Invert");
}

// A list without kind and version: entry "Main", category "C", name "N".
Pipl bare() { return Pipl().entry("wx86", "Main").pascal("catg", "C").pascal("name", "N"); }

// Copies the bytes into an exactly sized heap block so that ASan catches
// any read past the resource.
std::optional<std::string> read(const std::string& bytes, PiplTexts& texts,
                                std::uint32_t entryKey = kX86) {
  auto block = std::make_unique<unsigned char[]>(bytes.size() + 1);
  std::memcpy(block.get(), bytes.data(), bytes.size());
  return read_pipl(block.get(), bytes.size(), entryKey, texts);
}

std::string cut(const std::string& bytes, std::size_t drop) {
  return bytes.substr(0, bytes.size() - drop);
}

struct ListCase {
  const char* what;
  std::string bytes;
  std::optional<std::string> entry;  // none: rejected
  std::uint32_t entryKey = kX86;
};

class PiplList : public ::testing::TestWithParam<ListCase> {};

TEST_P(PiplList, Verdict) {
  const ListCase& c = GetParam();
  PiplTexts texts;
  EXPECT_EQ(read(c.bytes, texts, c.entryKey), c.entry) << c.what;
}

const std::string kMain = "Main";

INSTANTIATE_TEST_SUITE_P(
    Lists, PiplList,
    ::testing::Values(
        ListCase{"no kind stated", bare().bytes(), kMain},
        ListCase{"version 3.7", bare().version(3, 7).bytes(), kMain},
        ListCase{"version 0xFFFF.0", bare().version(0xFFFF, 0).bytes(), {}},
        ListCase{"mode and unknown keys skipped",
                 bare()
                     .add("mode", std::string("\x10\0\0\0", 4))
                     .add("fici", std::string(28, 1))
                     .bytes(),
                 kMain},
        ListCase{"other kind after the rest", bare().add("kind", code("8BIF")).bytes(), {}},
        ListCase{"empty category",
                 Pipl().entry("wx86", "Main").pascal("catg", "").pascal("name", "N").bytes(),
                 {}},
        ListCase{"empty entry",
                 Pipl().entry("wx86", "").pascal("catg", "C").pascal("name", "N").bytes(),
                 {}},
        ListCase{"no properties", Pipl().bytes(), {}},
        ListCase{"x64 entry for an x64 host", filter("8664").bytes(), "PluginMain", kX64},
        ListCase{"x86 entry for an x64 host", filter("wx86").bytes(), {}, kX64},
        ListCase{"list version 1", filter("wx86").bytes(1), {}},
        ListCase{"entry longer than 255 characters is cut",
                 filter("wx86", std::string(300, 'E')).bytes(), std::string(255, 'E')},
        // Claims beyond the resource.
        ListCase{"one property more than present", filter("wx86").bytes(0, 6), {}},
        ListCase{"count of 2^31-1", filter("wx86").bytes(0, 0x7FFFFFFF), {}},
        ListCase{"last property's data cut", cut(filter("wx86").bytes(), 1), {}},
        ListCase{
            "last property's header cut", cut(filter("wx86").pascal("xtra", "").bytes(), 9), {}},
        ListCase{
            "data length beyond the end", filter("wx86").add("name", "\x01N", 0x1000).bytes(), {}},
        ListCase{"negative data length",
                 filter("wx86").add("name", "\x01N", -2 & 0xFFFFFFFF).bytes(),
                 {}},
        ListCase{"header only", cut(Pipl().bytes(), 1), {}}, ListCase{"empty", {}, {}}));

TEST(PiplParser, TextsOfTheAcceptedListWithTheirLengthBoundByTheProperty) {
  PiplTexts texts;
  EXPECT_FALSE(read(filter("wx86").bytes(0, 0xFFFFFFFF), texts));
  EXPECT_EQ(texts.category, "");  // a negative count means no properties at all
  ASSERT_EQ(read(filter("wx86", "FilterEntry").bytes(), texts), "FilterEntry");
  EXPECT_EQ(texts.category, "Tests");
  EXPECT_EQ(texts.name, "Invert");
  ASSERT_TRUE(
      read(Pipl().entry("wx86", "Main").pascal("catg", "C").add("name", "\x09Lo").bytes(), texts));
  EXPECT_EQ(texts.name, "Lo");  // the length byte claims 9 characters
}

}  // namespace
