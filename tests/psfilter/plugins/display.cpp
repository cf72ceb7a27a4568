// Draws two previews through the host's displayPixels into a memory device
// context of the image's size, then hands the drawing back as the result
// (planes 0..2). An RGB pixel map of 5 x 4 pixels, red 10x+y, green 100+x,
// blue 200+y, with source rectangle (top 2, left 1, bottom 4, right 4) goes
// to row 0, column 0; a grey map of 6 x 3 pixels, 200+10y+x except 255 at
// (5, 1), with source rectangle (top 1, left 2, bottom 3, right 6) goes to
// row 3, column 2. The rest of the drawing is 0x11. Start fails with
// -(3000 + n) when displayPixels answers a case wrongly.
#include <vector>

#include "support/dib_canvas_win32.h"
#include "plugin_support.h"

namespace {

using Canvas = qnutil_test::DibCanvas;

PSPixelMap pixel_map(std::int32_t mode, std::vector<std::uint8_t>& bytes, int width,
                     int bytesPerPixel) {
  PSPixelMap map{};
  map.version = 1;
  map.imageMode = mode;
  map.rowBytes = width * bytesPerPixel;
  map.colBytes = bytesPerPixel;
  map.planeBytes = 1;
  map.baseAddr = bytes.data();
  return map;
}

std::int16_t draw(FilterRecord& record, Canvas& canvas) {
  std::vector<std::uint8_t> rgb;
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 5; ++x)
      rgb.insert(rgb.end(),
                 {std::uint8_t(10 * x + y), std::uint8_t(100 + x), std::uint8_t(200 + y)});
  std::vector<std::uint8_t> grey;
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 6; ++x) grey.push_back(std::uint8_t(200 + 10 * y + x));
  grey[1 * 6 + 5] = 255;

  const PSPixelMap rgbMap = pixel_map(plugInModeRGBColor, rgb, 5, 3);
  const PSPixelMap greyMap = pixel_map(plugInModeGrayScale, grey, 6, 1);
  PSPixelMap labMap = rgbMap;
  labMap.imageMode = 9;
  PSPixelMap noRows = rgbMap;
  noRows.rowBytes = 0;
  PSPixelMap noBase = rgbMap;
  noBase.baseAddr = nullptr;
  const VRect rgbRect{2, 1, 4, 4};
  const VRect greyRect{1, 2, 3, 6};
  const bool checks[] = {
      record.displayPixels(&rgbMap, &rgbRect, 0, 0, canvas.dc()) == noErr,
      record.displayPixels(&greyMap, &greyRect, 3, 2, canvas.dc()) == noErr,
      record.displayPixels(&labMap, &rgbRect, 0, 5, canvas.dc()) == noErr,  // nothing drawn
      record.displayPixels(&rgbMap, &rgbRect, 0, 0, nullptr) == filterBadParameters,
      record.displayPixels(&noRows, &rgbRect, 0, 0, canvas.dc()) == filterBadParameters,
      record.displayPixels(&noBase, &rgbRect, 0, 0, canvas.dc()) == filterBadParameters,
  };
  GdiFlush();
  return plugin::first_failed(checks, 3000);
}

}  // namespace

QNUTIL_PLUGIN_ENTRY {
  if (selector != filterSelectorStart) return;
  const int width = record->imageSize.h;
  const int height = record->imageSize.v;
  Canvas canvas(width, height, 0x11111111);
  if ((*result = draw(*record, canvas)) != noErr) return;

  record->inRect = Rect{};
  plugin::set_rect(record->outRect, 0, 0, height, width);
  record->outLoPlane = 0;
  record->outHiPlane = 2;
  if ((*result = record->advanceState()) != noErr) return;
  auto* out = static_cast<std::uint8_t*>(record->outData);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) {
      const std::uint32_t pixel = canvas.at(x, y);  // 0x00RRGGBB
      std::uint8_t* planes = out + y * record->outRowBytes + x * 3;
      planes[0] = std::uint8_t(pixel >> 16);
      planes[1] = std::uint8_t(pixel >> 8);
      planes[2] = std::uint8_t(pixel);
    }
  plugin::clear_tiles(*record);
}
