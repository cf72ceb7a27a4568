// Drawing onto a device context, checked by pixels under Wine's GDI+.
// Antialiasing differs between Wine and Windows, so shapes are checked by
// bounding boxes and sampled points, not pixel for pixel.
#include "gdiplus_fixture.h"

namespace {

using qnutil_test::GdiPlusTest;

int width_of(const RECT& box) { return box.right - box.left + 1; }
int height_of(const RECT& box) { return box.bottom - box.top + 1; }

TEST_F(GdiPlusTest, RotatedEllipseTurnsAboutTheCentre) {
  EXPECT_EQ(gdiPlusDrawRotatedEllipse(dc(), 40, 50, 40, 20, 60, 60, 0), 1);
  const RECT flat = dark_box();
  EXPECT_NEAR(width_of(flat), 41, 1);
  EXPECT_NEAR(height_of(flat), 21, 1);
  fill(0x00FFFFFF);
  EXPECT_EQ(gdiPlusDrawRotatedEllipse(dc(), 40, 50, 40, 20, 60, 60, 90), 1);
  const RECT upright = dark_box();
  EXPECT_NEAR(width_of(upright), 21, 1);
  EXPECT_NEAR(height_of(upright), 41, 1);
  EXPECT_NEAR((upright.left + upright.right) / 2.0, 60, 1);
}

TEST_F(GdiPlusTest, EllipseFillStylesSolidOrNone) {
  // Fill style 1: solid red inside.
  gdiPlusDrawRotatedEllipseRGB(dc(), 10, 10, 100, 100, 0, 0, 0, 1, 0.1f, 0, 0, 0, 255, 1, 255, 0,
                               0);
  EXPECT_EQ(at(60, 60), 0xFF0000u);
  // Fill style 0 and 8: only the outline.
  for (const int style : {0, 8}) {
    fill(0x0000FF00);
    gdiPlusDrawRotatedEllipseRGB(dc(), 10, 10, 100, 100, 0, 0, 0, 1, 0.1f, 0, 0, 0, 255, style, 255,
                                 0, 0);
    EXPECT_EQ(at(60, 60), 0x00FF00u) << style;
  }
}

TEST_F(GdiPlusTest, FillRectStartsAtTheOrigin) {
  EXPECT_EQ(gdiPlusFillRect(dc(), 255, 0, 0, 255, 30, 20), 1);
  EXPECT_EQ(at(0, 0), 0x0000FFu);
  EXPECT_EQ(at(29, 19), 0x0000FFu);
  EXPECT_EQ(at(31, 10), 0xFFFFFFu);
  EXPECT_EQ(at(10, 21), 0xFFFFFFu);
}

TEST_F(GdiPlusTest, PolygonFills) {
  const POINT square[4] = {{20, 20}, {80, 20}, {80, 80}, {20, 80}};
  EXPECT_EQ(gdiPlusFillPolygon(dc(), 12345, 255, 0, 128, 0, square, 4), 1);
  EXPECT_EQ(at(50, 50), 0x008000u);
  EXPECT_EQ(at(90, 50), 0xFFFFFFu);
  fill(0x00FFFFFF);
  // An unknown style draws nothing.
  EXPECT_EQ(gdiPlusFillPolygonEX(dc(), 0, 42, 255, 0, 0, 0, square, 4), 1);
  EXPECT_EQ(dark_box().right, -1);
  EXPECT_EQ(gdiPlusFillPolygonEX(dc(), 0, 6, 255, 0, 0, 0, square, 4), 1);  // cross hatch
  const RECT box = dark_box();
  EXPECT_GE(box.left, 19);
  EXPECT_LE(box.right, 80);
  EXPECT_NE(box.right, -1);
}

TEST_F(GdiPlusTest, ColorrefRedPaintsPureRed) {
  EXPECT_EQ(gdiPlusVerlaufRechteck(dc(), 10, 10, 60, 40, 0x000000FF, 0x000000FF), 1);
  EXPECT_EQ(at(40, 30), 0xFF0000u);
  EXPECT_EQ(at(80, 30), 0xFFFFFFu);
  fill(0x00FFFFFF);
  const POINT triangle[3] = {{0, 0}, {100, 0}, {0, 100}};
  EXPECT_EQ(gdiPlusVerlaufPolygon(dc(), triangle, 3, 20, 20, 0, 0, 60, 60, 0x000000FF, 0x00FF0000),
            1);
  EXPECT_TRUE(qnutil_test::near_colour(at(20, 20), 0xFF0000, 8));  // centre colour at the centre
  EXPECT_EQ(at(59, 59), 0xFFFFFFu);                                // outside the polygon
}

// A 100 x 100 image of four quadrants: red, green / blue, black.
void* quadrant_image() {
  static unsigned char bits[100 * 100 * 4];
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 100; ++x) {
      unsigned char* p = bits + (y * 100 + x) * 4;
      const bool left = x < 50, top = y < 50;
      p[0] = !top && left ? 255 : 0;  // blue: bottom left
      p[1] = top && !left ? 255 : 0;  // green: top right
      p[2] = top && left ? 255 : 0;   // red: top left
      p[3] = 255;
    }
  void* image = nullptr;
  gdiPlusGetBitmap(100, 100, 400, 1, bits, &image);
  return image;
}

TEST_F(GdiPlusTest, DrawImage3SourceRectangleRule) {
  void* image = quadrant_image();
  ASSERT_NE(image, nullptr);
  // Source (0, 0, 50, 50) stretched to 100 x 100: all red.
  EXPECT_EQ(gdiPlusDrawImage3(image, dc(), 0.5f, 0.5f, 0.0f, 0.5f), 1);
  EXPECT_TRUE(qnutil_test::near_colour(at(20, 20), 0xFF0000, 4));
  EXPECT_TRUE(qnutil_test::near_colour(at(80, 80), 0xFF0000, 4));
  // c = 0.5: source (0, 50, 50, 100), the blue quadrant fills the upper half.
  EXPECT_EQ(gdiPlusDrawImage3(image, dc(), 0.5f, 0.5f, 0.5f, 0.5f), 1);
  EXPECT_TRUE(qnutil_test::near_colour(at(50, 20), 0x0000FF, 4));
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, ImagesAreDrawnWhereAsked) {
  void* image = quadrant_image();
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(gdiPlusDrawImage(image, dc(), 10.0f, 5.0f), 1);
  EXPECT_EQ(at(12, 7), 0xFF0000u);
  EXPECT_EQ(at(70, 7), 0x00FF00u);
  EXPECT_EQ(at(5, 5), 0xFFFFFFu);
  EXPECT_EQ(gdiPlusDrawTranspImage(image, dc(), 20, 0), 1);
  EXPECT_EQ(at(5, 5), 0xFFFFFFu);  // cleared to white first
  EXPECT_EQ(at(22, 60), 0x0000FFu);
  // Parallelogram: the image mirrored left to right.
  EXPECT_EQ(gdiPlusDrawImage2(image, dc(), 100, 0, 0, 0, 100, 100), 1);
  EXPECT_TRUE(qnutil_test::near_colour(at(90, 10), 0xFF0000, 4));
  EXPECT_TRUE(qnutil_test::near_colour(at(10, 10), 0x00FF00, 4));
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, PrintAndClearReportTheDrawing) {
  void* image = quadrant_image();
  EXPECT_EQ(gdiPlusPrintImage(image, dc(), 0, 0, 0.5f, 0.5f), 1);
  EXPECT_TRUE(qnutil_test::near_colour(at(10, 10), 0xFF0000, 4));
  EXPECT_TRUE(qnutil_test::near_colour(at(40, 40), 0x000000, 4));
  EXPECT_EQ(at(60, 60), 0xFFFFFFu);
  EXPECT_EQ(gdiPlusPrintImage(nullptr, dc(), 0, 0, 1, 1), 0);
  gdiPlusFreeImage(image);
  EXPECT_EQ(gdiPlusClearGraphics(dc(), 1, 2, 3), 1);
  EXPECT_EQ(at(7, 7), 0x010203u);
}

}  // namespace
