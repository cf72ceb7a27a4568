#include <gtest/gtest.h>

#include "gdi_test_support.h"
#include "qnutil/gdi_win32.h"
#include "qnutil/qnutil_win32.h"

using gdi_test::DibCanvas;
using gdi_test::word_of;

namespace {

constexpr std::uint32_t kBackground = 0x00123456;

TEST(DrawEmbossedBitmap, DarkPixelsInShadowWithHighlightBelowRight) {
  // 4 × 4 white picture with dark pixels at (1, 1) and (3, 0).
  DibCanvas picture(4, 4, 0x00FFFFFF);
  picture.set(1, 1, 0x00000000);
  picture.set(3, 0, 0x00101010);
  DibCanvas target(10, 10, kBackground);
  const HBITMAP bitmap = picture.release_bitmap();
  QnUtil_DrawEmbossedBitmap(target.dc(), 2, 3, 4, 4, bitmap, 0, 0);
  picture.select_back();

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
}

TEST(DrawEmbossedBitmap, SourceOffsetSelectsTheRectangle) {
  DibCanvas picture(6, 6, 0x00FFFFFF);
  picture.set(4, 5, 0x00000000);
  DibCanvas target(4, 4, kBackground);
  const HBITMAP bitmap = picture.release_bitmap();
  QnUtil_DrawEmbossedBitmap(target.dc(), 0, 0, 3, 3, bitmap, 3, 3);
  picture.select_back();
  EXPECT_EQ(target.at(1, 2), word_of(GetSysColor(COLOR_3DSHADOW)));
  EXPECT_EQ(target.at(0, 0), word_of(GetSysColor(COLOR_3DFACE)));
  EXPECT_EQ(target.at(3, 3), kBackground);
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
}

TEST(DrawTransparentBitmap, NullBitmapDrawsNothing) {
  DibCanvas target(2, 2, kBackground);
  QnUtil_DrawTransparentBitmap(target.dc(), nullptr, 0, 0, 0);
  EXPECT_EQ(target.at(0, 0), kBackground);
  EXPECT_EQ(target.at(1, 1), kBackground);
}

}  // namespace
