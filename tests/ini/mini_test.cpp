// The mini_* C interface: single values, number lists and the style
// records stored as number lists.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::write_file;

constexpr std::uint32_t rgb(unsigned r, unsigned g, unsigned b) { return r | g << 8 | b << 16; }

template <class Record>
bool same(const Record& a, const Record& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

class MiniTest : public testing::Test {
 protected:
  void SetUp() override {
    write_file(path_,
               "[s]\r\nempty=\r\nword=abcdef\r\nshort=ab\r\nlist=1,2,3\r\ntrailing=1,2,\r\n"
               "double_sep=1,,2\r\nsigned_sep=1,-2\r\nbad=x\r\n"
               "[styles]\r\nshort=3,7\r\nguidlessGUID=not a guid\r\n");
    handle_ = mini_open_ex(path_.c_str(), 0);
    ASSERT_NE(handle_, nullptr);
  }
  void TearDown() override { mini_close(&handle_); }

  // The text stored under a key of [styles], "<none>" when there is none.
  std::string line(const std::string& key) {
    char text[300];
    unsigned int length = sizeof text - 1;
    return mini_read_string(handle_, "styles", key.c_str(), text, &length) == 0 ? text : "<none>";
  }

  // The stored list as numbers: whether a whole number was rounded to an
  // exact integer (and so written without decimals) depends on the
  // rounding's arithmetic, the value does not.
  std::vector<double> numbers(const std::string& key) {
    std::vector<double> out(20);
    int count = 20;
    EXPECT_EQ(mini_read_doubles(handle_, "styles", key.c_str(), out.data(), &count), 0) << key;
    out.resize(count);
    return out;
  }

  qnutil_test::ScratchDir dir_;
  std::string path_ = dir_.file("mini.ini");
  MiniHandle handle_ = nullptr;
};

TEST_F(MiniTest, OpenNeedsAnExistingAccessibleFile) {
  EXPECT_EQ(mini_open_ex(dir_.file("none.ini").c_str(), 0), nullptr);
  EXPECT_EQ(mini_open_ex(dir_.file("none.ini").c_str(), QNUTIL_MINI_READ), nullptr);
  EXPECT_EQ(mini_open_ex("", QNUTIL_MINI_READ), nullptr);
  EXPECT_EQ(mini_open_ex(nullptr, QNUTIL_MINI_READ), nullptr);
  MiniHandle composed = mini_open(dir_.path().string().c_str(), "mini.ini", QNUTIL_MINI_READ);
  ASSERT_NE(composed, nullptr);
  EXPECT_EQ(mini_close(&composed), 1);
  EXPECT_NE(composed, nullptr);  // the caller's variable is not cleared
  MiniHandle none = nullptr;
  EXPECT_EQ(mini_close(&none), 0);
  EXPECT_EQ(mini_close(nullptr), 0);
}

TEST_F(MiniTest, ReadStringCutsAtTheGivenLength) {
  const struct {
    const char* key;
    unsigned int len;
    int result;
    const char* text;  // the buffer afterwards, which starts as "keep"
    unsigned int len_after;
  } rows[] = {{"word", 4, 0, "abcd", 4},
              {"short", 4, 0, "ab", 2},
              {"word", 6, 0, "abcdef", 6},
              {"empty", 8, 0, "", 0},
              {"missing", 8, -1, "keep", 8}};
  for (const auto& row : rows) {
    char buf[16];
    std::memset(buf, 'x', sizeof buf);
    std::strcpy(buf, "keep");
    unsigned int len = row.len;
    EXPECT_EQ(mini_read_string(handle_, "s", row.key, buf, &len), row.result) << row.key;
    EXPECT_STREQ(buf, row.text);
    EXPECT_EQ(len, row.len_after) << row.key;
    EXPECT_EQ(buf[row.len + 1], 'x') << row.key;
  }
  char buf[8];
  EXPECT_EQ(mini_read_string(handle_, "s", "word", buf, nullptr), -1);
}

TEST_F(MiniTest, ReadDoublesStoresWhatWasParsed) {
  const struct {
    const char* key;
    int capacity, result;
    std::vector<double> stored;  // out afterwards, the rest untouched (99)
    int count_after;
  } rows[] = {{"list", 5, 0, {1, 2, 3}, 3},
              {"list", 2, 0, {1, 2}, 2},
              {"trailing", 5, -1, {1, 2}, 5},
              {"double_sep", 5, -1, {1}, 5},
              {"signed_sep", 5, 0, {1, -2}, 2},
              {"empty", 5, -1, {}, 5},
              {"bad", 5, -1, {}, 5},
              {"list", 0, -1, {}, 0}};
  for (const auto& row : rows) {
    std::vector<double> out(5, 99.0), expected = row.stored;
    expected.resize(5, 99.0);
    int count = row.capacity;
    EXPECT_EQ(mini_read_doubles(handle_, "s", row.key, out.data(), &count), row.result) << row.key;
    EXPECT_EQ(count, row.count_after) << row.key;
    EXPECT_EQ(out, expected) << row.key;
  }
  EXPECT_EQ(mini_write_doubles(handle_, "s", "list", nullptr, 2), QNUTIL_FAILED);
}

TEST_F(MiniTest, PenStyleRoundTripsAndTheScaledFormLosesItsColour) {
  const PenStyleRec pen{-3, 0.35f, rgb(200, 100, 0)};
  ASSERT_EQ(mini_write_penstyle(handle_, "styles", "pen", &pen), 0);
  EXPECT_EQ(numbers("pen"), (std::vector<double>{-3, 0.35, 200, 100, 0}));
  PenStyleRec back{};
  ASSERT_EQ(mini_read_penstyle(handle_, "styles", "pen", &back), 0);
  EXPECT_TRUE(same(back, pen));
  const PenStyleRec scaled{1, 2.0f, rgb(200, 100, 0)};
  ASSERT_EQ(mini_write_penstyleEX(handle_, "styles", "penex", &scaled), 0);
  EXPECT_EQ(line("penex"), "1,2,1,0,0");
  ASSERT_EQ(mini_read_penstyle(handle_, "styles", "penex", &back), 0);
  EXPECT_EQ(+back.color, rgb(1, 0, 0));
  const PenStyleRec edge{1, 2.0f, rgb(127, 128, 255)};
  ASSERT_EQ(mini_write_penstyleEX(handle_, "styles", "penex", &edge), 0);
  EXPECT_EQ(line("penex"), "1,2,0,1,1");
}

TEST_F(MiniTest, ExtendedFillStoresTheGuidInRegistryFormAndNeedsIt) {
  FillStyleExRec style{};
  style.fill = FillStyleRec{2, 5, rgb(1, 2, 3), 4, rgb(5, 6, 7), 8};
  style.guid =
      QnUtilGuid{0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};
  ASSERT_EQ(mini_write_fillstyle_ex(handle_, "styles", "ex", &style), 0);
  EXPECT_EQ(line("exGUID"), "{6B29FC40-CA47-1067-B31D-00DD010662DA}");
  FillStyleExRec back{};
  ASSERT_EQ(mini_read_fillstyle_ex(handle_, "styles", "ex", &back), 0);
  EXPECT_TRUE(same(back, style));
  ASSERT_EQ(
      mini_write_string(handle_, "styles", "exGUID", "{6b29fc40-ca47-1067-b31d-00dd010662da}"), 0);
  back = FillStyleExRec{};
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", "ex", &back), 0);
  EXPECT_TRUE(same(back, style));
  // The GUID text is no GUID: the fill fields are read all the same.
  style = FillStyleExRec{};
  ASSERT_EQ(mini_write_fillstyle(handle_, "styles", "guidless", &style.fill), 0);
  style.fill.style = 99;
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", "guidless", &style), -1);
  EXPECT_EQ(style.fill.style, 0);
  // No GUID key at all.
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", "short", &style), -1);
  EXPECT_EQ(style.fill.style, 3);
  // A key too long to take the suffix: the numbers are written, no GUID.
  const std::string long_key(251, 'k');
  EXPECT_EQ(mini_write_fillstyle_ex(handle_, "styles", long_key.c_str(), &style), -1);
  EXPECT_NE(line(long_key), "<none>");
  EXPECT_EQ(line(long_key + "GUID"), "<none>");
  EXPECT_EQ(mini_write_fillstyle_ex(handle_, "styles", std::string(250, 'k').c_str(), &style), 0);
}

}  // namespace
