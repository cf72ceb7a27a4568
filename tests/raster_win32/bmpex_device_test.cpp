#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "gdi_test_support.h"
#include "qnutil/gdi_win32.h"
#include "qnutil/qnutil_win32.h"

using gdi_test::DibCanvas;
using gdi_test::Pixels;

namespace {

constexpr std::uint32_t kBackground = 0x00ABCDEF;
// A 3 × 2 picture, top row first.
const Pixels kPicture{0x00FF0000, 0x0000FF00, 0x000000FF, 0x00010203, 0x00FFFFFF, 0x00000000};

bmpExHandle new_image() {
  bmpExHandle handle = nullptr;
  EXPECT_EQ(bmpExInit(&handle), 1);
  return handle;
}

// A device bitmap (compatible with the screen) holding the picture.
HBITMAP device_bitmap(int width, int height, const Pixels& pixels) {
  DibCanvas canvas(width, height);
  canvas.set_all(pixels);
  const HDC screen = GetDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  ReleaseDC(nullptr, screen);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, bitmap);
  BitBlt(dc, 0, 0, width, height, canvas.dc(), 0, 0, SRCCOPY);
  SelectObject(dc, old);
  DeleteDC(dc);
  return bitmap;
}

// The picture of a bitmap as top-down 0x00RRGGBB words, through GetDIBits.
Pixels pixels_of(HBITMAP bitmap, int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  Pixels pixels(static_cast<size_t>(width * height));
  const HDC screen = GetDC(nullptr);
  GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  for (auto& pixel : pixels) pixel &= 0x00FFFFFF;
  return pixels;
}

void expect_picture_at(const DibCanvas& canvas, int left, int top, const Pixels& picture,
                       int width, int height) {
  for (int y = 0; y < canvas.height(); ++y)
    for (int x = 0; x < canvas.width(); ++x) {
      const bool inside = x >= left && x < left + width && y >= top && y < top + height;
      const std::uint32_t expected =
          inside ? picture[static_cast<size_t>((y - top) * width + (x - left))] : kBackground;
      EXPECT_EQ(canvas.at(x, y), expected) << x << "," << y;
    }
}

TEST(BmpExDevice, LoadFromDeviceBitmapThenDrawKeepsTheOrientation) {
  const bmpExHandle image = new_image();
  const HBITMAP source = device_bitmap(3, 2, kPicture);
  EXPECT_EQ(bmpExLoadFromHBitmap(image, source), 1);
  DibCanvas canvas(5, 4, kBackground);
  EXPECT_EQ(bmpExDraw(image, canvas.dc()), 1);
  expect_picture_at(canvas, 0, 0, kPicture, 3, 2);
  DeleteObject(source);
}

TEST(BmpExDevice, SaveCreatesA32BitDeviceBitmapOfThePicture) {
  const bmpExHandle image = new_image();
  const HBITMAP source = device_bitmap(3, 2, kPicture);
  bmpExLoadFromHBitmap(image, source);
  HBITMAP saved = nullptr;
  EXPECT_EQ(bmpExSave(image, &saved), 1);
  ASSERT_NE(saved, nullptr);
  BITMAP description{};
  GetObjectA(saved, sizeof description, &description);
  EXPECT_EQ(description.bmWidth, 3);
  EXPECT_EQ(description.bmHeight, 2);
  EXPECT_EQ(description.bmBitsPixel, 32);
  EXPECT_EQ(pixels_of(saved, 3, 2), kPicture);
  // A second save into the filled handle creates nothing.
  const HBITMAP first = saved;
  EXPECT_EQ(bmpExSave(image, &saved), 1);
  EXPECT_EQ(saved, first);
  // The image is unchanged by saving: drawing still shows it upright.
  DibCanvas canvas(3, 2, kBackground);
  bmpExDraw(image, canvas.dc());
  expect_picture_at(canvas, 0, 0, kPicture, 3, 2);
  DeleteObject(saved);
  DeleteObject(source);
}

TEST(BmpExDevice, Draw2StretchesIntoTheRectangle) {
  const bmpExHandle image = new_image();
  const HBITMAP source = device_bitmap(3, 2, kPicture);
  bmpExLoadFromHBitmap(image, source);
  DibCanvas canvas(8, 6, kBackground);
  EXPECT_EQ(bmpExDraw2(image, canvas.dc(), 1, 1, 6, 4), 1);
  Pixels doubled;
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 6; ++x) doubled.push_back(kPicture[static_cast<size_t>(y / 2 * 3 + x / 2)]);
  expect_picture_at(canvas, 1, 1, doubled, 6, 4);
  DeleteObject(source);
}

TEST(BmpExDevice, SixteenBitPixelsKeepTheirUnscaledChannels) {
  // 5-5-5 words: white 0x7FFF and pure red 0x7C00.
  const std::uint16_t words[2] = {0x7FFF, 0x7C00};
  const HBITMAP source = CreateBitmap(2, 1, 1, 16, words);
  ASSERT_NE(source, nullptr);
  const bmpExHandle image = new_image();
  bmpExLoadFromHBitmap(image, source);
  DibCanvas canvas(2, 1, kBackground);
  bmpExDraw(image, canvas.dc());
  EXPECT_EQ(canvas.at(0, 0), 0x001F1F1Fu);
  EXPECT_EQ(canvas.at(1, 0), 0x001F0000u);
  DeleteObject(source);
}

TEST(BmpExDevice, TwentyFourBitRowsUseTheDeviceRowWidth) {
  // Width 3: 9 bytes of pixels, device rows padded to 10.
  const std::uint8_t bytes[20] = {0x03, 0x02, 0x01, 0x06, 0x05, 0x04, 0x09, 0x08, 0x07, 0,
                                  0x0C, 0x0B, 0x0A, 0x0F, 0x0E, 0x0D, 0x12, 0x11, 0x10, 0};
  const HBITMAP source = CreateBitmap(3, 2, 1, 24, bytes);
  ASSERT_NE(source, nullptr);
  BITMAP description{};
  GetObjectA(source, sizeof description, &description);
  const bmpExHandle image = new_image();
  bmpExLoadFromHBitmap(image, source);
  DibCanvas canvas(3, 2, kBackground);
  bmpExDraw(image, canvas.dc());
  if (description.bmBitsPixel != 24) GTEST_SKIP() << "system keeps no 24-bit device bitmaps";
  expect_picture_at(canvas, 0, 0,
                    {0x010203, 0x040506, 0x070809, 0x0A0B0C, 0x0D0E0F, 0x101112}, 3, 2);
  DeleteObject(source);
}

TEST(BmpExDevice, PaletteBitmapsLeaveTheImageEmpty) {
  const std::uint8_t indexes[4] = {0, 1, 2, 3};
  const HBITMAP source = CreateBitmap(2, 2, 1, 8, indexes);
  const HBITMAP picture = device_bitmap(3, 2, kPicture);
  const bmpExHandle image = new_image();
  bmpExLoadFromHBitmap(image, picture);
  bmpExLoadFromHBitmap(image, source);  // empties the image
  DibCanvas canvas(3, 2, kBackground);
  EXPECT_EQ(bmpExDraw(image, canvas.dc()), 1);
  EXPECT_EQ(bmpExDraw2(image, canvas.dc(), 0, 0, 3, 2), 1);
  expect_picture_at(canvas, 0, 0, {}, 0, 0);
  HBITMAP saved = nullptr;
  EXPECT_EQ(bmpExSave(image, &saved), 1);
  EXPECT_EQ(saved, nullptr);
  EXPECT_EQ(bmpExLoadFromHBitmap(image, nullptr), 1);
  DeleteObject(source);
  DeleteObject(picture);
}

TEST(BmpExDevice, NullHandlesGiveZero) {
  HBITMAP saved = nullptr;
  DibCanvas canvas(1, 1, kBackground);
  EXPECT_EQ(bmpExLoadFromHBitmap(nullptr, nullptr), 0);
  EXPECT_EQ(bmpExSave(nullptr, &saved), 0);
  EXPECT_EQ(bmpExDraw(nullptr, canvas.dc()), 0);
  EXPECT_EQ(bmpExDraw2(nullptr, canvas.dc(), 0, 0, 1, 1), 0);
  EXPECT_EQ(canvas.at(0, 0), kBackground);
}

// A BMP file read by the engine shows on a device exactly as GDI itself
// shows the same file.
TEST(BmpExDevice, FileDrawnLikeTheSystemDrawsIt) {
  const std::uint8_t file[] = {
      'B', 'M', 70, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  // file header
      40, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 16, 0, 0, 0,
      0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // info header
      0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0, 0,        // bottom row, padded
      0x70, 0x80, 0x90, 0xA0, 0xB0, 0xC0, 0, 0};       // top row
  const bmpExHandle image = new_image();
  bmpExLoadFromBits(image, file);
  DibCanvas ours(2, 2, kBackground), system(2, 2, kBackground);
  bmpExDraw(image, ours.dc());
  SetDIBitsToDevice(system.dc(), 0, 0, 2, 2, 0, 0, 0, 2, file + 54,
                    reinterpret_cast<const BITMAPINFO*>(file + 14), DIB_RGB_COLORS);
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 2; ++x) EXPECT_EQ(ours.at(x, y), system.at(x, y)) << x << "," << y;
  EXPECT_EQ(ours.at(0, 0), 0x00908070u);
}

}  // namespace
