// The property-list reader over hand-built resources: which lists a host
// accepts, what it takes from them, and that no claimed length leads it past
// the resource's end.
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

std::optional<std::string> read(const PiplBuilder& builder, std::uint32_t entryKey = kX86) {
  PiplTexts texts;
  return read(builder.bytes(), texts, entryKey);
}

TEST(PiplParser, AcceptedFilterYieldsEntryCategoryAndName) {
  PiplTexts texts;
  const auto entry = read(PiplBuilder::filter("wx86", "FilterEntry").bytes(), texts);
  ASSERT_TRUE(entry);
  EXPECT_EQ(*entry, "FilterEntry");
  EXPECT_EQ(texts.category, "Tests");
  EXPECT_EQ(texts.name, "Invert");
}

TEST(PiplParser, EntryPropertyOfTheRunningArchitectureOnly) {
  EXPECT_TRUE(read(PiplBuilder::filter("8664"), kX64));
  EXPECT_FALSE(read(PiplBuilder::filter("8664"), kX86));
  EXPECT_FALSE(read(PiplBuilder::filter("wx86"), kX64));
}

struct VersionCase {
  std::uint16_t major, minor;
  bool accepted;
};
class PiplVersion : public ::testing::TestWithParam<VersionCase> {};

TEST_P(PiplVersion, NewerThanFourZeroIsRejected) {
  const VersionCase c = GetParam();
  PiplBuilder builder;
  builder.kind("8BFM").version(c.major, c.minor).entry("wx86", "Main").pascal("catg", "C").pascal("name", "N");
  EXPECT_EQ(read(builder).has_value(), c.accepted) << c.major << "." << c.minor;
}

INSTANTIATE_TEST_SUITE_P(Versions, PiplVersion,
                         ::testing::Values(VersionCase{4, 0, true}, VersionCase{3, 0, true},
                                           VersionCase{3, 7, true}, VersionCase{4, 1, false},
                                           VersionCase{5, 0, false}, VersionCase{0xFFFF, 0, false}));

struct ListCase {
  const char* what;
  PiplBuilder list;
  bool accepted;
};

PiplBuilder with(std::initializer_list<void (*)(PiplBuilder&)> steps) {
  PiplBuilder builder;
  for (auto step : steps) step(builder);
  return builder;
}
void kind_filter(PiplBuilder& b) { b.kind("8BFM"); }
void kind_other(PiplBuilder& b) { b.kind("8BIF"); }
void entry_main(PiplBuilder& b) { b.entry("wx86", "Main"); }
void entry_empty(PiplBuilder& b) { b.entry("wx86", ""); }
void category(PiplBuilder& b) { b.pascal("catg", "C"); }
void category_empty(PiplBuilder& b) { b.pascal("catg", ""); }
void name(PiplBuilder& b) { b.pascal("name", "N"); }
void mode_and_unknown(PiplBuilder& b) { b.property("mode", std::string("\x10\0\0\0", 4)).property("fici", std::string(28, '\x01')); }

class PiplList : public ::testing::TestWithParam<ListCase> {};

TEST_P(PiplList, Verdict) {
  const ListCase& c = GetParam();
  EXPECT_EQ(read(c.list).has_value(), c.accepted) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Lists, PiplList,
    ::testing::Values(ListCase{"complete", with({kind_filter, entry_main, category, name}), true},
                      ListCase{"no kind stated", with({entry_main, category, name}), true},
                      ListCase{"mode and unknown keys skipped", with({mode_and_unknown, entry_main, category, name}), true},
                      ListCase{"other kind", with({kind_other, entry_main, category, name}), false},
                      ListCase{"other kind after the rest", with({entry_main, category, name, kind_other}), false},
                      ListCase{"no category", with({kind_filter, entry_main, name}), false},
                      ListCase{"no name", with({kind_filter, entry_main, category}), false},
                      ListCase{"empty category", with({kind_filter, entry_main, category_empty, name}), false},
                      ListCase{"no entry", with({kind_filter, category, name}), false},
                      ListCase{"empty entry", with({kind_filter, entry_empty, category, name}), false},
                      ListCase{"no properties", with({}), false}));

TEST(PiplParser, ListVersionMustBeZero) {
  PiplTexts texts;
  EXPECT_FALSE(read(PiplBuilder::filter("wx86").bytes(1), texts));
}

struct Truncation {
  const char* what;
  std::vector<unsigned char> bytes;
};
class PiplTruncated : public ::testing::TestWithParam<Truncation> {};

TEST_P(PiplTruncated, ClaimsBeyondTheResourceAreRejected) {
  PiplTexts texts;
  EXPECT_FALSE(read(GetParam().bytes, texts)) << GetParam().what;
}

std::vector<unsigned char> cut(std::vector<unsigned char> bytes, std::size_t drop) {
  bytes.resize(bytes.size() - drop);
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Claims, PiplTruncated,
    ::testing::Values(
        Truncation{"one property more than present", PiplBuilder::filter("wx86").bytes(0, 6)},
        Truncation{"count of 2^31-1", PiplBuilder::filter("wx86").bytes(0, 0x7FFFFFFF)},
        Truncation{"last property's data cut", cut(PiplBuilder::filter("wx86").bytes(), 1)},
        Truncation{"last property's header cut", cut(PiplBuilder::filter("wx86").pascal("xtra", "").bytes(), 9)},
        Truncation{"data length beyond the end",
                   PiplBuilder::filter("wx86").property("name", "\x01N\0\0", 0x1000).bytes()},
        Truncation{"negative data length", PiplBuilder::filter("wx86").property("name", "\x01N\0\0", -2 & 0xFFFFFFFF).bytes()},
        Truncation{"header only", cut(PiplBuilder().bytes(), 1)},
        Truncation{"empty", {}}));

TEST(PiplParser, NegativeCountMeansNoProperties) {
  PiplTexts texts;
  EXPECT_FALSE(read(PiplBuilder::filter("wx86").bytes(0, 0xFFFFFFFF), texts));
  EXPECT_EQ(texts.category, "");
}

TEST(PiplParser, EntryNameLongerThan255CharactersIsCut) {
  const std::string longName(300, 'E');
  const auto entry = read(PiplBuilder::filter("wx86", longName));
  ASSERT_TRUE(entry);
  EXPECT_EQ(*entry, std::string(255, 'E'));
}

TEST(PiplParser, PascalLengthIsBoundByTheProperty) {
  PiplBuilder builder;
  builder.entry("wx86", "Main").pascal("catg", "C").property("name", "\x09Lo");
  PiplTexts texts;
  ASSERT_TRUE(read(builder.bytes(), texts));
  EXPECT_EQ(texts.name, "Lo");  // the length byte claims 9 characters
}

TEST(PiplParser, TextsOfAnAbandonedListSurviveForTheNextList) {
  PiplTexts texts;
  PiplBuilder abandoned;
  abandoned.pascal("catg", "Old").pascal("name", "Kept").kind("8BIF").entry("wx86", "Main");
  EXPECT_FALSE(read(abandoned.bytes(), texts));
  EXPECT_EQ(texts.category, "Old");

  PiplBuilder withoutTexts;
  withoutTexts.kind("8BFM").entry("wx86", "Main").pascal("catg", "New");
  ASSERT_TRUE(read(withoutTexts.bytes(), texts));
  EXPECT_EQ(texts.category, "New");
  EXPECT_EQ(texts.name, "Kept");
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
}

TEST(PiplParser, NullResourceIsRejected) {
  PiplTexts texts;
  EXPECT_FALSE(read_pipl(nullptr, 100, kX86, texts));
}

}  // namespace
