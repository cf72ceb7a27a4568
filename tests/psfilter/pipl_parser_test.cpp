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
#include <vector>

#include "pipl_builder.h"
#include "psfilter/four_char_code.h"

namespace {

using qnutil::psfilter::four_char_code;
using qnutil::psfilter::PiplTexts;
using qnutil::psfilter::read_pipl;
using qnutil_test::PiplBuilder;

constexpr std::uint32_t kX86 = four_char_code("wx86");
constexpr std::uint32_t kX64 = four_char_code("8664");

// Copies the bytes into an exactly sized heap block so that ASan catches
// any read past the resource.
std::optional<std::string> read(const std::vector<unsigned char>& bytes, PiplTexts& texts,
                                std::uint32_t entryKey = kX86) {
  auto block = std::make_unique<unsigned char[]>(bytes.size() + 1);
  if (!bytes.empty()) std::memcpy(block.get(), bytes.data(), bytes.size());
  return read_pipl(block.get(), bytes.size(), entryKey, texts);
}

std::vector<unsigned char> cut(std::vector<unsigned char> bytes, std::size_t drop) {
  bytes.resize(bytes.size() - drop);
  return bytes;
}

// A list without kind and version: entry "Main", category "C", name "N".
PiplBuilder bare() {
  PiplBuilder builder;
  builder.entry("wx86", "Main").pascal("catg", "C").pascal("name", "N");
  return builder;
}

struct ListCase {
  const char* what;
  std::vector<unsigned char> bytes;
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
                 bare().property("mode", std::string("\x10\0\0\0", 4)).property("fici", std::string(28, 1)).bytes(),
                 kMain},
        ListCase{"other kind after the rest", bare().kind("8BIF").bytes(), {}},
        ListCase{"empty category", PiplBuilder().entry("wx86", "Main").pascal("catg", "").pascal("name", "N").bytes(), {}},
        ListCase{"empty entry", PiplBuilder().entry("wx86", "").pascal("catg", "C").pascal("name", "N").bytes(), {}},
        ListCase{"no properties", PiplBuilder().bytes(), {}},
        ListCase{"x64 entry for an x64 host", PiplBuilder::filter("8664").bytes(), "PluginMain", kX64},
        ListCase{"x86 entry for an x64 host", PiplBuilder::filter("wx86").bytes(), {}, kX64},
        ListCase{"list version 1", PiplBuilder::filter("wx86").bytes(1), {}},
        ListCase{"entry longer than 255 characters is cut", PiplBuilder::filter("wx86", std::string(300, 'E')).bytes(),
                 std::string(255, 'E')},
        // Claims beyond the resource.
        ListCase{"one property more than present", PiplBuilder::filter("wx86").bytes(0, 6), {}},
        ListCase{"count of 2^31-1", PiplBuilder::filter("wx86").bytes(0, 0x7FFFFFFF), {}},
        ListCase{"last property's data cut", cut(PiplBuilder::filter("wx86").bytes(), 1), {}},
        ListCase{"last property's header cut", cut(PiplBuilder::filter("wx86").pascal("xtra", "").bytes(), 9), {}},
        ListCase{"data length beyond the end",
                 PiplBuilder::filter("wx86").property("name", "\x01N\0\0", 0x1000).bytes(), {}},
        ListCase{"negative data length",
                 PiplBuilder::filter("wx86").property("name", "\x01N\0\0", -2 & 0xFFFFFFFF).bytes(), {}},
        ListCase{"header only", cut(PiplBuilder().bytes(), 1), {}},
        ListCase{"empty", {}, {}}));

TEST(PiplParser, TextsOfTheAcceptedListWithTheirLengthBoundByTheProperty) {
  PiplTexts texts;
  EXPECT_FALSE(read(PiplBuilder::filter("wx86").bytes(0, 0xFFFFFFFF), texts));
  EXPECT_EQ(texts.category, "");  // a negative count means no properties at all
  ASSERT_EQ(read(PiplBuilder::filter("wx86", "FilterEntry").bytes(), texts), "FilterEntry");
  EXPECT_EQ(texts.category, "Tests");
  EXPECT_EQ(texts.name, "Invert");
  PiplBuilder builder;
  builder.entry("wx86", "Main").pascal("catg", "C").property("name", "\x09Lo");
  ASSERT_TRUE(read(builder.bytes(), texts));
  EXPECT_EQ(texts.name, "Lo");  // the length byte claims 9 characters
}

TEST(PiplParser, ListStartsAtTheFirstFourByteBoundary) {
  const std::vector<unsigned char> list = PiplBuilder::filter("wx86").bytes();
  auto block = std::make_unique<unsigned char[]>(list.size() + 8);
  unsigned char* aligned = block.get();
  while (reinterpret_cast<std::uintptr_t>(aligned) % 4 != 0) ++aligned;
  std::memcpy(aligned + 4, list.data(), list.size());
  PiplTexts texts;
  // Starting one byte past a boundary, the reader skips to the next one.
  EXPECT_TRUE(read_pipl(aligned + 1, list.size() + 3, kX86, texts));
  EXPECT_FALSE(read_pipl(aligned + 1, list.size() + 2, kX86, texts));
  EXPECT_FALSE(read_pipl(nullptr, 100, kX86, texts));
}

}  // namespace
