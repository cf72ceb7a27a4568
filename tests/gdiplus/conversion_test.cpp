// Raw buffers, device bitmaps and files as GDI+ images, checked by pixels.
#include <cstring>
#include <string>
#include <utility>

#include "gdiplus_fixture.h"
#include "support/test_support.h"

namespace {

using qnutil_test::GdiPlusTest;

// The copies are drawn over opaque white, so an alpha shows as blending
// with white: a white-keyed pixel (alpha 0) comes out white.
TEST_F(GdiPlusTest, BitmapFromBitsFlipsRowsAndAppliesAlphaOverWhite) {
  // Bottom-up, 2 x 2: bottom row red and (255,255,254); top row blue and white.
  unsigned char bits[16] = {0, 0, 255, 0, 254, 255, 255, 0, 255, 0, 0, 0, 255, 255, 255, 0};
  void* image = nullptr;
  ASSERT_EQ(gdiPlusBitmapFromBits(bits, 2, 2, 4, 4, 255, 1, &image), 1);
  EXPECT_EQ(bitmap(image)->GetPixelFormat(), PixelFormat32bppARGB);
  EXPECT_EQ(argb_at(image, 0, 0), 0xFF0000FFu);  // top row = last source row
  EXPECT_EQ(argb_at(image, 1, 0), 0xFFFFFFFFu);
  EXPECT_EQ(argb_at(image, 0, 1), 0xFFFF0000u);
  EXPECT_EQ(argb_at(image, 1, 1), 0xFFFFFFFEu);  // 254 is not keyed
  gdiPlusFreeImage(image);

  ASSERT_EQ(gdiPlusBitmapFromBits(bits, 2, 2, 4, 4, 128, 1, &image), 1);
  EXPECT_TRUE(
      qnutil_test::near_colour(argb_at(image, 0, 1), 0xFFFF7F7F, 1));  // half red over white
  gdiPlusFreeImage(image);

  ASSERT_EQ(gdiPlusBitmapFromBits(bits, 2, 2, 4, 4, 128, 0, &image), 1);
  EXPECT_EQ(bitmap(image)->GetPixelFormat(), PixelFormat24bppRGB);
  EXPECT_EQ(argb_at(image, 0, 1), 0xFFFF0000u);  // no alpha channel
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, BitmapFromRamStructReadsTheRecord) {
  unsigned char bits[8] = {0, 255, 0, 0, 10, 20, 30, 0};
  RamStruct ram{bits, 0, 1, 2, 4};
  void* image = nullptr;
  ASSERT_EQ(gdiPlusBitmapFromRamStruct(&ram, 0x1FF, 1, &image), 1);  // low byte 0xFF
  EXPECT_EQ(argb_at(image, 0, 0), 0xFF00FF00u);
  EXPECT_EQ(argb_at(image, 1, 0), 0xFF1E140Au);
  gdiPlusFreeImage(image);
  EXPECT_EQ(gdiPlusBitmapFromRamStruct(nullptr, 255, 1, &image), 0);
}

TEST_F(GdiPlusTest, GetBitmapExFlipsA24BitBufferIntoTopDown32Bit) {
  // Two rows of one pixel, stride 4: bottom row (row 0 in memory) blue.
  unsigned char bits[8] = {255, 0, 0, 0, 0, 0, 255, 0};
  void* image = nullptr;
  ASSERT_EQ(gdiPlusGetBitmapEx(1, 2, 4, 4, 2, 255, bits, &image), 1);
  EXPECT_EQ(argb_at(image, 0, 0), 0xFFFF0000u);  // first row = last source row (red)
  EXPECT_EQ(argb_at(image, 0, 1), 0xFF0000FFu);
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, ResizeGivesA600DpiArgbImageOfTheRequestedSize) {
  fill(0x00FF0000);
  HBITMAP source = static_cast<HBITMAP>(GetCurrentObject(dc(), OBJ_BITMAP));
  void* image = nullptr;
  ASSERT_EQ(gdiPlusResizeBitmap(source, 30, 20, &image), 1);
  EXPECT_EQ(bitmap(image)->GetWidth(), 30u);
  EXPECT_EQ(bitmap(image)->GetHeight(), 20u);
  EXPECT_EQ(bitmap(image)->GetPixelFormat(), PixelFormat32bppARGB);
  EXPECT_EQ(bitmap(image)->GetHorizontalResolution(), 600.0f);
  EXPECT_TRUE(qnutil_test::near_colour(argb_at(image, 15, 10), 0xFFFF0000, 2));
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, EncoderLookupIsCaseSensitive) {
  unsigned char clsid[16] = {};
  EXPECT_EQ(gdiPlusGetEncoderClsid("image/png", clsid), 1);
  EXPECT_EQ(gdiPlusGetEncoderClsid("IMAGE/PNG", clsid), 0);
  EXPECT_EQ(gdiPlusGetEncoderClsid("image/none", clsid), 0);
}

// Each format code writes its file format; decoded again, the lossless
// ones give the pixels back.
TEST_F(GdiPlusTest, SaveImageWritesTheFormatAndDecodesToThePixels) {
  const std::pair<int, const char*> formats[] = {{1, "\xFF\xD8"}, {2, "GIF8"}, {3, "II*"},
                                                 {4, "\x89PNG"},  {0, "BM"},   {7, "BM"}};
  // 8 x 8: left half red, right half blue.
  unsigned char bits[8 * 8 * 4];
  for (int i = 0; i < 64; ++i) {
    unsigned char* p = bits + i * 4;
    const bool left = i % 8 < 4;
    p[0] = left ? 0 : 255, p[1] = 0, p[2] = left ? 255 : 0, p[3] = 0;
  }
  qnutil_test::ScratchDir dir;
  for (const auto& [code, magic] : formats) {
    SCOPED_TRACE(code);
    void* image = nullptr;
    ASSERT_EQ(gdiPlusGetBitmap(8, 8, 32, 1, bits, &image), 1);
    const std::string path = dir.file("saved" + std::to_string(code));
    ASSERT_EQ(gdiPlusSaveImage(image, path.c_str(), code), 1);
    gdiPlusFreeImage(image);
    EXPECT_EQ(qnutil_test::read_file(path).compare(0, std::strlen(magic), magic), 0);
    if (code == 1 || code == 2) continue;  // JPEG is lossy; Wine cannot read back its GIF
    void* decoded = nullptr;
    ASSERT_EQ(gdiPlusGetBitmapFromFile(path.c_str(), &decoded), 1);
    EXPECT_EQ(argb_at(decoded, 1, 1), 0xFFFF0000u);
    EXPECT_EQ(argb_at(decoded, 6, 6), 0xFF0000FFu);
    gdiPlusFreeImage(decoded);
  }
}

TEST_F(GdiPlusTest, NullHandlesAreRefused) {
  void* image = nullptr;
  EXPECT_EQ(gdiPlusSaveImage(nullptr, "x.bmp", 0), 0);
  EXPECT_EQ(gdiPlusFreeImage(nullptr), 0);
  EXPECT_EQ(gdiPlusFreeGraphics(nullptr), 0);
  EXPECT_EQ(gdiPlusSetOrigin(nullptr, 1, 1), 0);
  EXPECT_EQ(gdiPlusGetGraphicsFromBitmap(nullptr, &image), 0);
  EXPECT_EQ(gdiPlusDrawImage(nullptr, dc(), 0, 0), 0);
  EXPECT_EQ(gdiPlusGetBitmapFromFile("no such file.png", &image), 0);
  EXPECT_EQ(gdiPlusBitmapFromBits(nullptr, 1, 1, 4, 4, 0, 0, &image), 0);
}

TEST_F(GdiPlusTest, SessionStartedOnceSurvivesASecondInit) {
  EXPECT_EQ(gdiPlusInit(), 1);
  EXPECT_EQ(gdiPlusInit(), 1);
  EXPECT_EQ(gdiPlusLoad(), 1);
  EXPECT_EQ(gdiPlusExit(), 1);
  EXPECT_EQ(gdiPlusInit(), 1);  // a new session after the exit
  unsigned char bits[4] = {0, 0, 255, 0};
  void* image = nullptr;
  EXPECT_EQ(gdiPlusGetBitmap(1, 1, 4, 1, bits, &image), 1);
  gdiPlusFreeImage(image);
}

TEST_F(GdiPlusTest, SurfaceOnABitmapDrawsIntoIt) {
  unsigned char bits[16 * 16 * 4] = {};
  void* image = nullptr;
  ASSERT_EQ(gdiPlusGetBitmap(16, 16, 64, 2, bits, &image), 1);
  void* surface = nullptr;
  ASSERT_EQ(gdiPlusGetGraphicsFromBitmap(image, &surface), 1);
  ASSERT_NE(surface, nullptr);
  EXPECT_EQ(gdiPlusSetOrigin(surface, 8, 8), 1);
  HDC surface_dc = nullptr;
  ASSERT_EQ(gdiPlusGetHDCFromGraphics(surface, &surface_dc), 1);
  EXPECT_EQ(gdiPlusFreeHDC(surface, surface_dc), 1);
  const Gdiplus::SolidBrush green(Gdiplus::Color(255, 0, 255, 0));
  // Shifted by the origin to (8, 8).
  static_cast<Gdiplus::Graphics*>(surface)->FillRectangle(&green, 0, 0, 4, 4);
  EXPECT_EQ(gdiPlusFreeGraphics(surface), 1);
  EXPECT_EQ(argb_at(image, 9, 9), 0xFF00FF00u);
  EXPECT_EQ(argb_at(image, 1, 1), 0xFF000000u);
  gdiPlusFreeImage(image);
}

}  // namespace
