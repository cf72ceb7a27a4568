// BMP images in memory through every loader of the raster engine, then the
// memory saver and a few whole-image operations on whatever was loaded.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "raster/pixel_layout.h"
#include "raster/qn_bitmap.h"

namespace {

// Images the header describes as larger than this (64 x 64 working
// pixels) are skipped: they are valid, only slow to fill and to run the
// effects over, and no rule of the loaders or operations depends on a
// size beyond a few rows. Impossible sizes are not skipped.
constexpr uint32_t kMaxFuzzedPixelBytes = 64 * 64 * 4;

bool too_large_to_fuzz(const QnBmpInfoHeader& info) {
  const auto layout = qnutil::raster::describe_pixels(info);
  return layout && layout->working_bytes > kMaxFuzzedPixelBytes;
}

void exercise(CQnBitmap& image) {
  std::vector<uint8_t> saved(image.SavedMemorySize());
  image.SaveToMemory(saved.data(), saved.size());
  if (image.IsEmpty()) return;
  CQnBitmap canvas;
  canvas.Create(7, 5);
  canvas.Fill(0x123456);
  for (int mode = 0; mode < 3; ++mode) {
    canvas.SetInterpolationMode(mode);
    canvas.DrawBitmap(-2, 1, 9, 3, &image, 1, -1, image.Width(), image.Height(), 60);
  }
  canvas.CopyRect(1, 1, 4, 4, &image, 0, 0);
  image.Crop(1, 1, image.Width() - 1, image.Height() / 2 + 1);
  image.FlipHorizontal();
  image.Blur();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // The info headers as the loaders will see them: bytes past the end are 0.
  QnBmpInfoHeader info{}, dib{};
  if (size > 14) std::memcpy(&info, data + 14, std::min<size_t>(40, size - 14));
  std::memcpy(&dib, data, std::min<size_t>(40, size));
  if (!too_large_to_fuzz(info)) {
    CQnBitmap image;
    image.LoadFromBits(data, size);
    exercise(image);
  }
  if (!too_large_to_fuzz(dib)) {
    CQnBitmap image;
    image.LoadFromBits2(data, 0, size);
    exercise(image);
    if (size >= 40) {
      // Headers apart from the data, both taken from the input.
      QnBmpFileHeader file{};
      image.LoadFromBits3(file, dib, data + 40, size - 40);
      exercise(image);
    }
  }
  return 0;
}
