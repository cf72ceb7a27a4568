// The device side of bmpEx: device bitmaps in and out and drawing into
// device contexts, checked pixel by pixel on the device.
#include <gtest/gtest.h>

#include <cstdint>

#include "support/dib_canvas_win32.h"
#include "qnutil/gdi_win32.h"
#include "qnutil/qnutil_win32.h"

using qnutil_test::device_bitmap;
using qnutil_test::DibCanvas;
using qnutil_test::Pixels;

namespace {

constexpr std::uint32_t kBackground = 0x00ABCDEF;
// A 3 × 2 picture, top row first.
const Pixels kPicture{0x00FF0000, 0x0000FF00, 0x000000FF, 0x00010203, 0x00FFFFFF, 0x00000000};

bmpExHandle new_image() {
  bmpExHandle handle = nullptr;
  EXPECT_EQ(bmpExInit(&handle), 1);
  return handle;
}

// The picture of a bitmap as top-down 0x00RRGGBB words, through GetDIBits.
Pixels pixels_of(HBITMAP bitmap, int width, int height) {
  BITMAPINFO info = qnutil_test::top_down_info(width, height);
  Pixels pixels(static_cast<size_t>(width * height));
  const HDC screen = GetDC(nullptr);
  GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  for (auto& pixel : pixels) pixel &= 0x00FFFFFF;
  return pixels;
}

void expect_picture_at(const DibCanvas& canvas, int left, int top, const Pixels& picture, int width,
                       int height) {
  for (int y = 0; y < canvas.height(); ++y)
    for (int x = 0; x < canvas.width(); ++x) {
      const bool inside = x >= left && x < left + width && y >= top && y < top + height;
      const std::uint32_t expected =
          inside ? picture[static_cast<size_t>((y - top) * width + (x - left))] : kBackground;
      EXPECT_EQ(canvas.at(x, y), expected) << x << "," << y;
    }
}

TEST(BmpExDevice, DeviceBitmapInAndOutKeepsTheOrientation) {
  const bmpExHandle image = new_image();
  const HBITMAP source = device_bitmap(3, 2, kPicture);
  EXPECT_EQ(bmpExLoadFromHBitmap(image, source), 1);
  DibCanvas canvas(5, 4, kBackground);
  EXPECT_EQ(bmpExDraw(image, canvas.dc()), 1);
  expect_picture_at(canvas, 0, 0, kPicture, 3, 2);
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
  DibCanvas again(5, 4, kBackground);
  bmpExDraw(image, again.dc());
  expect_picture_at(again, 0, 0, kPicture, 3, 2);
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

TEST(BmpExDevice, PaletteBitmapsLeaveTheImageEmptyAndNullHandlesGiveZero) {
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
  // Null handles give 0 and draw nothing.
  EXPECT_EQ(bmpExLoadFromHBitmap(nullptr, nullptr), 0);
  EXPECT_EQ(bmpExSave(nullptr, &saved), 0);
  EXPECT_EQ(bmpExDraw(nullptr, canvas.dc()), 0);
  EXPECT_EQ(bmpExDraw2(nullptr, canvas.dc(), 0, 0, 1, 1), 0);
  expect_picture_at(canvas, 0, 0, {}, 0, 0);
}

}  // namespace
