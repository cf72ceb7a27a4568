// Style records round-tripped through real INI files.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <vector>
#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"

namespace {

using qnutil_test::read_file;
using qnutil_test::ScratchDir;
using qnutil_test::write_file;

constexpr std::uint32_t rgb(unsigned r, unsigned g, unsigned b) { return r | g << 8 | b << 16; }

class StyleTest : public testing::Test {
 protected:
  void SetUp() override {
    write_file(path_, "[styles]\r\nshort=3,7\r\nbad=1,,2\r\ntex=0.00005,1,2,3,4,5,6,7,8,0.0001,-0.5,9.5,10.25\r\n"
                      "trunc=2.9,300.7,1,2,3,-1.9,4,5,6,259\r\n"
                      "guidlessGUID=not a guid\r\n");
    handle_ = mini_open_ex(path_.c_str(), 0);
    ASSERT_NE(handle_, nullptr);
  }
  void TearDown() override { mini_close(&handle_); }
  std::string line(const std::string& key) {
    const std::string file = read_file(path_);
    const auto at = file.find("\n" + key + "=");
    if (at == std::string::npos) return "<none>";
    const auto begin = at + key.size() + 2;
    return file.substr(begin, file.find('\r', begin) - begin);
  }

  // The stored list as numbers: whether a whole number was rounded to an
  // exact integer (and so written without decimals) depends on the
  // rounding's arithmetic, the value does not.
  std::vector<double> numbers(const std::string& key) {
    std::vector<double> out;
    const std::string text = line(key);
    for (const char* p = text.c_str(); *p;) {
      char* end = nullptr;
      out.push_back(std::strtod(p, &end));
      p = *end ? end + 1 : end;
    }
    return out;
  }

  ScratchDir dir_;
  std::string path_ = dir_.file("styles.ini");
  MiniHandle handle_ = nullptr;
};

TEST_F(StyleTest, FillStyleRoundTrips) {
  FillStyleRec fill{7, 123456, rgb(10, 20, 30), 200, rgb(255, 0, 128), 9};
  ASSERT_EQ(mini_write_fillstyle(handle_, "styles", "fill", &fill), 0);
  EXPECT_EQ(numbers("fill"), (std::vector<double>{7, 123456, 10, 20, 30, 200, 255, 0, 128, 9}));
  FillStyleRec back;
  std::memset(&back, 0xEE, sizeof back);
  ASSERT_EQ(mini_read_fillstyle(handle_, "styles", "fill", &back), 0);
  EXPECT_EQ(std::memcmp(&back, &fill, sizeof fill), 0);
}

TEST_F(StyleTest, FillParamBeyondInt32WrapsInTheFile) {
  FillStyleRec fill{1, 2147483647u, 0, 0, 0, 0};
  ASSERT_EQ(mini_write_fillstyle(handle_, "styles", "max", &fill), 0);
  EXPECT_EQ(numbers("max"), (std::vector<double>{1, 2147483647, 0, 0, 0, 0, 0, 0, 0, 0}));
  fill.param = 2147483648u;
  ASSERT_EQ(mini_write_fillstyle(handle_, "styles", "wrap", &fill), 0);
  EXPECT_EQ(line("wrap"), "1,-2147483648,0,0,0,0,0,0,0,0");
  FillStyleRec back{};
  ASSERT_EQ(mini_read_fillstyle(handle_, "styles", "wrap", &back), 0);
  EXPECT_EQ(+back.param, 2147483648u);
}

TEST_F(StyleTest, ShortListsFillTheRestWithZero) {
  FillStyleRec fill;
  std::memset(&fill, 0xEE, sizeof fill);
  ASSERT_EQ(mini_read_fillstyle(handle_, "styles", "short", &fill), 0);
  EXPECT_EQ(fill.style, 3);
  EXPECT_EQ(+fill.param, 7u);
  EXPECT_EQ(+fill.color, 0u);
  EXPECT_EQ(fill.param3, 0);
}

TEST_F(StyleTest, NumbersAreTruncatedAndBytesKeepTheLowBits) {
  FillStyleRec fill{};
  ASSERT_EQ(mini_read_fillstyle(handle_, "styles", "trunc", &fill), 0);
  EXPECT_EQ(fill.style, 2);          // 2.9 truncated, not rounded
  EXPECT_EQ(+fill.param, 300u);
  EXPECT_EQ(fill.param2, 255);       // -1.9 -> -1 -> low byte
  EXPECT_EQ(fill.param3, 3);         // 259 -> low byte
  EXPECT_EQ(+fill.color, rgb(1, 2, 3));
}

TEST_F(StyleTest, MissingOrMalformedListsLeaveTheRecord) {
  FillStyleRec fill;
  std::memset(&fill, 0xEE, sizeof fill);
  const FillStyleRec before = fill;
  EXPECT_EQ(mini_read_fillstyle(handle_, "styles", "missing", &fill), -1);
  EXPECT_EQ(mini_read_fillstyle(handle_, "styles", "bad", &fill), -1);
  EXPECT_EQ(std::memcmp(&fill, &before, sizeof fill), 0);
  EXPECT_EQ(mini_read_fillstyle(handle_, "styles", "short", nullptr), -1);
  EXPECT_EQ(mini_write_fillstyle(handle_, "styles", nullptr, &fill), -1);
  PenStyleRec pen{};
  EXPECT_EQ(mini_read_penstyle(nullptr, "styles", "short", &pen), -1);
  TexPropsRec tex{};
  EXPECT_EQ(mini_write_texprops(handle_, nullptr, "t", &tex), -1);
}

TEST_F(StyleTest, PenStyleRoundTrips) {
  const PenStyleRec pen{-3, 0.35f, rgb(200, 100, 0)};
  ASSERT_EQ(mini_write_penstyle(handle_, "styles", "pen", &pen), 0);
  EXPECT_EQ(numbers("pen"), (std::vector<double>{-3, 0.35, 200, 100, 0}));
  PenStyleRec back{};
  ASSERT_EQ(mini_read_penstyle(handle_, "styles", "pen", &back), 0);
  EXPECT_EQ(back.style, -3);
  EXPECT_EQ(back.width, 0.35f);
  EXPECT_EQ(+back.color, pen.color);
}

TEST_F(StyleTest, ScaledPenLosesItsColour) {
  const PenStyleRec pen{1, 2.0f, rgb(200, 100, 0)};
  ASSERT_EQ(mini_write_penstyleEX(handle_, "styles", "penex", &pen), 0);
  EXPECT_EQ(line("penex"), "1,2,1,0,0");
  PenStyleRec back{};
  ASSERT_EQ(mini_read_penstyle(handle_, "styles", "penex", &back), 0);
  EXPECT_EQ(+back.color, rgb(1, 0, 0));
  const PenStyleRec edge{1, 2.0f, rgb(127, 128, 255)};
  ASSERT_EQ(mini_write_penstyleEX(handle_, "styles", "penex", &edge), 0);
  EXPECT_EQ(line("penex"), "1,2,0,1,1");
}

TEST_F(StyleTest, TexturePropertiesUseTheBooleanThreshold) {
  TexPropsRec tex{};
  ASSERT_EQ(mini_read_texprops(handle_, "styles", "tex", &tex), 0);
  EXPECT_EQ(tex.enabled, 0);  // 0.00005
  EXPECT_EQ(tex.values[0], 1.0f);
  EXPECT_EQ(tex.values[7], 8.0f);
  EXPECT_EQ(tex.flag2, 1);  // 0.0001
  EXPECT_EQ(tex.flag3, 1);  // -0.5
  EXPECT_EQ(tex.value9, 9.5f);
  EXPECT_EQ(tex.value10, 10.25f);
  tex.enabled = 5;
  tex.values[2] = 1.234567f;
  ASSERT_EQ(mini_write_texprops(handle_, "styles", "tex2", &tex), 0);
  EXPECT_EQ(numbers("tex2"),
            (std::vector<double>{1, 1, 2, 1.23457, 4, 5, 6, 7, 8, 1, 1, 9.5, 10.25}));
}

TEST_F(StyleTest, ExtendedFillStoresTheGuidInRegistryForm) {
  FillStyleExRec style{};
  style.fill = FillStyleRec{2, 5, rgb(1, 2, 3), 4, rgb(5, 6, 7), 8};
  style.guid = QnUtilGuid{0x6b29fc40, 0xca47, 0x1067, {0xb3, 0x1d, 0x00, 0xdd, 0x01, 0x06, 0x62, 0xda}};
  ASSERT_EQ(mini_write_fillstyle_ex(handle_, "styles", "ex", &style), 0);
  EXPECT_EQ(line("exGUID"), "{6B29FC40-CA47-1067-B31D-00DD010662DA}");
  FillStyleExRec back;
  std::memset(&back, 0, sizeof back);
  ASSERT_EQ(mini_read_fillstyle_ex(handle_, "styles", "ex", &back), 0);
  EXPECT_EQ(std::memcmp(&back, &style, sizeof style), 0);
  ASSERT_EQ(mini_write_string(handle_, "styles", "exGUID", "{6b29fc40-ca47-1067-b31d-00dd010662da}"), 0);
  std::memset(&back, 0, sizeof back);
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", "ex", &back), 0);
  EXPECT_EQ(std::memcmp(&back.guid, &style.guid, sizeof style.guid), 0);
}

TEST_F(StyleTest, ExtendedFillGuidFailures) {
  FillStyleExRec style{};
  // The GUID text is no GUID: the fill fields are read all the same.
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
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", long_key.c_str(), &style), -1);
  const std::string longest(250, 'k');
  EXPECT_EQ(mini_write_fillstyle_ex(handle_, "styles", longest.c_str(), &style), 0);
  EXPECT_EQ(mini_read_fillstyle_ex(handle_, "styles", longest.c_str(), &style), 0);
}

}  // namespace
