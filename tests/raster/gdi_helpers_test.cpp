// The GDI bitmap helpers: regions from bitmaps, embossed and transparent
// drawing, checked pixel by pixel in memory DCs.
#include <gtest/gtest.h>

#include <vector>

#include "support/dib_canvas_win32.h"
#include "qnutil/gdi_win32.h"
#include "qnutil/qnutil_win32.h"

using qnutil_test::DibCanvas;
using qnutil_test::Pixels;
using qnutil_test::word_of;

namespace {

constexpr std::uint32_t kKey = 0x00FF00FF;
constexpr std::uint32_t kBackground = 0x00123456;

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
  RECT box{};
  GetRgnBox(region, &box);
  EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.right <= width && box.bottom <= height);
}

TEST(RegionFromBitmap, CoversExactlyTheNonKeyPixels) {
  const struct {
    const char* name;
    int width;
    int height;
    std::uint32_t (*pixel)(int x, int y);
    bool device = false;  // a device bitmap instead of a DIB section
  } rows[] = {
      {"Diagonal", 7, 5, [](int x, int y) { return x == y ? kKey : 0x123456u; }},
      {"FourthByteIgnored", 4, 3,
       [](int x, int) { return x == 2 ? (kKey | 0xFF000000u) : 0x01000000u; }},
      // 50 runs in each of 100 rows: two batches of 2000 and a rest.
      {"ManyBatches", 100, 100, [](int x, int y) { return (x + y) % 2 ? kKey : 0x00000001u; }},
      {"NoKeyGivesTheWholeBitmap", 4, 3, [](int, int) { return 0x00FF00FEu; }},
      {"AllKeyGivesAnEmptyRegion", 3, 2, [](int, int) { return kKey; }},
      {"DeviceBitmap", 3, 2, [](int x, int y) { return x == 1 && y == 0 ? kKey : 0x404040u; },
       true}};
  for (const auto& c : rows) {
    SCOPED_TRACE(c.name);
    Pixels pixels;
    for (int y = 0; y < c.height; ++y)
      for (int x = 0; x < c.width; ++x) pixels.push_back(c.pixel(x, y));
    DibCanvas canvas(c.width, c.height);
    canvas.set_all(pixels);
    const HBITMAP bitmap =
        c.device ? qnutil_test::device_bitmap(c.width, c.height, pixels) : canvas.release_bitmap();
    const HRGN region = QnUtil_CreateRegionFromBitmap(bitmap, kKey);
    if (c.device) DeleteObject(bitmap);
    ASSERT_NE(region, nullptr);
    expect_region_matches(region, c.width, c.height, pixels, kKey);
    DeleteObject(region);
  }
}

// The key is 0x00RRGGBB: a COLORREF of pure red names pure blue pixels.
TEST(RegionFromBitmapKey, ComparedWithRedAndBlueExchangedAgainstAColorref) {
  DibCanvas canvas(2, 1);
  canvas.set_all({0x000000FF, 0x00FF0000});
  const HRGN region = QnUtil_CreateRegionFromBitmap(canvas.release_bitmap(), RGB(255, 0, 0));
  ASSERT_NE(region, nullptr);
  EXPECT_FALSE(PtInRegion(region, 0, 0));
  EXPECT_TRUE(PtInRegion(region, 1, 0));
  DeleteObject(region);
  EXPECT_EQ(QnUtil_CreateRegionFromBitmap(nullptr, 0), nullptr);
}

TEST(DrawEmbossedBitmap, DarkPixelsInShadowWithHighlightBelowRight) {
  // 4 × 4 white picture with dark pixels at (1, 1) and (3, 0).
  DibCanvas picture(4, 4, 0x00FFFFFF);
  picture.set(1, 1, 0x00000000);
  picture.set(3, 0, 0x00101010);
  DibCanvas target(10, 10, kBackground);
  const HBITMAP bitmap = picture.release_bitmap();
  QnUtil_DrawEmbossedBitmap(target.dc(), 2, 3, 4, 4, bitmap, 0, 0);

  const std::uint32_t face = word_of(GetSysColor(COLOR_3DFACE));
  const std::uint32_t highlight = word_of(GetSysColor(COLOR_3DHILIGHT));
  const std::uint32_t shadow = word_of(GetSysColor(COLOR_3DSHADOW));
  for (int y = 0; y < 10; ++y)
    for (int x = 0; x < 10; ++x) {
      std::uint32_t expected = kBackground;
      if (x >= 2 && x < 6 && y >= 3 && y < 7) expected = face;
      if ((x == 4 && y == 5) || (x == 6 && y == 4)) expected = highlight;  // one right and down
      if ((x == 3 && y == 4) || (x == 5 && y == 3)) expected = shadow;
      EXPECT_EQ(target.at(x, y), expected) << x << "," << y;
    }
  // A source offset selects the rectangle: from (1, 1) on, the dark pixel
  // comes first.
  DibCanvas offset(4, 4, kBackground);
  QnUtil_DrawEmbossedBitmap(offset.dc(), 0, 0, 3, 3, bitmap, 1, 1);
  EXPECT_EQ((Pixels{offset.at(0, 0), offset.at(1, 1), offset.at(2, 2), offset.at(3, 3)}),
            (Pixels{shadow, highlight, face, kBackground}));
  picture.select_back();
}

TEST(DrawTransparentBitmap, TransparentPixelsLeaveTheTarget) {
  const COLORREF transparent = RGB(0, 255, 0);
  DibCanvas picture(3, 2, word_of(transparent));
  picture.set(0, 0, 0x00FF0000);
  picture.set(2, 1, 0x000000FF);
  picture.set(1, 1, 0x00FFFFFF);
  DibCanvas target(6, 5, kBackground);
  SetBkColor(target.dc(), RGB(1, 2, 3));
  SetTextColor(target.dc(), RGB(4, 5, 6));
  const HBITMAP bitmap = picture.release_bitmap();
  QnUtil_DrawTransparentBitmap(target.dc(), bitmap, 2, 1, transparent);
  picture.select_back();
  for (int y = 0; y < 5; ++y)
    for (int x = 0; x < 6; ++x) {
      std::uint32_t expected = kBackground;
      if (x == 2 && y == 1) expected = 0x00FF0000;
      if (x == 4 && y == 2) expected = 0x000000FF;
      if (x == 3 && y == 2) expected = 0x00FFFFFF;
      EXPECT_EQ(target.at(x, y), expected) << x << "," << y;
    }
  // The target's colours are restored.
  EXPECT_EQ(GetBkColor(target.dc()), RGB(1, 2, 3));
  EXPECT_EQ(GetTextColor(target.dc()), RGB(4, 5, 6));
  // A null bitmap draws nothing.
  QnUtil_DrawTransparentBitmap(target.dc(), nullptr, 0, 0, 0);
  EXPECT_EQ(target.at(0, 0), kBackground);
}

}  // namespace
