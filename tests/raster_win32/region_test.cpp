#include <gtest/gtest.h>

#include <vector>

#include "gdi_test_support.h"
#include "qnutil/gdi_win32.h"
#include "qnutil/qnutil_win32.h"

using gdi_test::DibCanvas;
using gdi_test::Pixels;

namespace {

constexpr std::uint32_t kKey = 0x00FF00FF;

// A bitmap holding the picture, owned for one test.
class PictureBitmap {
 public:
  PictureBitmap(int width, int height, const Pixels& pixels) : canvas_(width, height) {
    canvas_.set_all(pixels);
    bitmap_ = canvas_.release_bitmap();
  }
  HBITMAP get() const { return bitmap_; }

 private:
  DibCanvas canvas_;
  HBITMAP bitmap_;
};

std::vector<RECT> rectangles_of(HRGN region) {
  const DWORD size = GetRegionData(region, 0, nullptr);
  std::vector<char> data(size);
  GetRegionData(region, size, reinterpret_cast<RGNDATA*>(data.data()));
  const auto* header = reinterpret_cast<const RGNDATAHEADER*>(data.data());
  const auto* rects = reinterpret_cast<const RECT*>(data.data() + header->dwSize);
  return {rects, rects + header->nCount};
}

// Every pixel is inside the region exactly when it is not the key.
void expect_region_matches(HRGN region, int width, int height, const Pixels& pixels,
                           std::uint32_t key) {
  int mismatches = 0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const bool inside = PtInRegion(region, x, y) != FALSE;
      const bool keyed = ((pixels[static_cast<size_t>(y * width + x)] ^ key) & 0xFFFFFF) == 0;
      if (inside == keyed && ++mismatches < 5) ADD_FAILURE() << "pixel " << x << "," << y;
    }
  EXPECT_EQ(mismatches, 0);
  RECT outside_box{};
  GetRgnBox(region, &outside_box);
  EXPECT_GE(outside_box.left, 0);
  EXPECT_GE(outside_box.top, 0);
  EXPECT_LE(outside_box.right, width);
  EXPECT_LE(outside_box.bottom, height);
}

struct RegionCase {
  const char* name;
  int width;
  int height;
  // Pixel (x, y) → word.
  std::uint32_t (*pixel)(int x, int y);
};

class RegionFromBitmap : public testing::TestWithParam<RegionCase> {};

TEST_P(RegionFromBitmap, CoversExactlyTheNonKeyPixels) {
  const RegionCase& c = GetParam();
  Pixels pixels;
  for (int y = 0; y < c.height; ++y)
    for (int x = 0; x < c.width; ++x) pixels.push_back(c.pixel(x, y));
  PictureBitmap bitmap(c.width, c.height, pixels);
  const HRGN region = QnUtil_CreateRegionFromBitmap(bitmap.get(), kKey);
  ASSERT_NE(region, nullptr);
  expect_region_matches(region, c.width, c.height, pixels, kKey);
  DeleteObject(region);
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, RegionFromBitmap,
    testing::Values(
        RegionCase{"Diagonal", 7, 5, [](int x, int y) { return x == y ? kKey : 0x123456u; }},
        RegionCase{"FourthByteIgnored", 4, 3,
                   [](int x, int) { return x == 2 ? (kKey | 0xFF000000u) : 0x01000000u; }},
        RegionCase{"KeyAtRowEnds", 9, 4,
                   [](int x, int) { return x == 0 || x == 8 ? kKey : 0xFFFFFFu; }},
        // 50 runs in each of 100 rows: two batches of 2000 and a rest.
        RegionCase{"ManyBatches", 100, 100,
                   [](int x, int y) { return (x + y) % 2 ? kKey : 0x00000001u; }},
        RegionCase{"TallStripes", 3, 700, [](int x, int) { return x == 1 ? kKey : 0x808080u; }}),
    [](const auto& info) { return std::string(info.param.name); });

struct ShapeCase {
  const char* name;
  int width;
  int height;
  Pixels pixels;
  std::vector<RECT> expected;  // as the system stores the region
};

Pixels repeated_rows(int height, const Pixels& row) {
  Pixels pixels;
  for (int y = 0; y < height; ++y) pixels.insert(pixels.end(), row.begin(), row.end());
  return pixels;
}

ShapeCase two_thousand_rectangles() {
  // 20 runs in each of 100 rows: one flush during the scan, then an empty
  // final batch merged in. Runs that repeat in every row merge into one
  // rectangle per column run.
  Pixels row;
  std::vector<RECT> columns;
  for (LONG x = 0; x < 40; ++x) {
    row.push_back(x % 2 ? kKey : 0x00000002u);
    if (x % 2 == 0) columns.push_back(RECT{x, 0, x + 1, 100});
  }
  return {"ExactlyTwoThousandRectangles", 40, 100, repeated_rows(100, row), columns};
}

class RegionShapes : public testing::TestWithParam<ShapeCase> {};

TEST_P(RegionShapes, GivesTheseRectangles) {
  const ShapeCase& c = GetParam();
  PictureBitmap bitmap(c.width, c.height, c.pixels);
  const HRGN region = QnUtil_CreateRegionFromBitmap(bitmap.get(), kKey);
  ASSERT_NE(region, nullptr);
  const auto rects = rectangles_of(region);
  ASSERT_EQ(rects.size(), c.expected.size());
  for (size_t i = 0; i < rects.size(); ++i)
    EXPECT_TRUE(EqualRect(&rects[i], &c.expected[i]))
        << i << ": " << rects[i].left << "," << rects[i].top << "," << rects[i].right << ","
        << rects[i].bottom;
  expect_region_matches(region, c.width, c.height, c.pixels, kKey);
  DeleteObject(region);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, RegionShapes,
    testing::Values(ShapeCase{"NoKeyGivesTheWholeBitmap", 4, 3, Pixels(12, 0x00FF00FE),
                              {RECT{0, 0, 4, 3}}},
                    ShapeCase{"AllKeyGivesAnEmptyRegion", 3, 2, Pixels(6, kKey), {}},
                    two_thousand_rectangles(),
                    ShapeCase{"OnePixelHighRowsLieAtTheTop", 5, 1, Pixels{1, kKey, 1, 1, kKey},
                              {RECT{0, 0, 1, 1}, RECT{2, 0, 4, 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

// The key is 0x00RRGGBB: a COLORREF of pure red names pure blue pixels.
TEST(RegionFromBitmapKey, ComparedWithRedAndBlueExchangedAgainstAColorref) {
  const std::uint32_t blue = 0x000000FF, red = 0x00FF0000;
  const Pixels pixels{blue, red};
  PictureBitmap bitmap(2, 1, pixels);
  const HRGN region = QnUtil_CreateRegionFromBitmap(bitmap.get(), RGB(255, 0, 0));
  ASSERT_NE(region, nullptr);
  EXPECT_FALSE(PtInRegion(region, 0, 0));
  EXPECT_TRUE(PtInRegion(region, 1, 0));
  DeleteObject(region);
}

TEST(RegionFromBitmapKey, NullBitmapGivesNull) {
  EXPECT_EQ(QnUtil_CreateRegionFromBitmap(nullptr, 0), nullptr);
}

TEST(RegionFromBitmapKey, DeviceBitmapSourcesWork) {
  const HDC screen = GetDC(nullptr);
  const HBITMAP device = CreateCompatibleBitmap(screen, 3, 2);
  ReleaseDC(nullptr, screen);
  ASSERT_NE(device, nullptr);
  DibCanvas canvas(3, 2, 0x00404040);
  canvas.set(1, 0, kKey);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, device);
  BitBlt(dc, 0, 0, 3, 2, canvas.dc(), 0, 0, SRCCOPY);
  SelectObject(dc, old);
  DeleteDC(dc);
  const HRGN region = QnUtil_CreateRegionFromBitmap(device, kKey);
  ASSERT_NE(region, nullptr);
  expect_region_matches(region, 3, 2, {0x404040, kKey, 0x404040, 0x404040, 0x404040, 0x404040},
                        kKey);
  DeleteObject(region);
  DeleteObject(device);
}

}  // namespace
