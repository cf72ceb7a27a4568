// Raw pixel buffers of the host and the raster engine as GDI+ bitmaps.
// Every result owns its pixels (see owned_copy): the caller's buffer and
// the temporary copies need only live for the call.
#include <cstddef>
#include <vector>

#include "frame/export_guard.h"
#include "gdiplus/owned_copy.h"

namespace {

using qnutil::frame::guard_export;
using qnutil::gdiplus::Backdrop;
using qnutil::gdiplus::owned_copy;

// Only exact white is keyed out; 254 in any channel stays opaque.
BYTE white_keyed_alpha(const BYTE* pixel, BYTE alpha) {
  return pixel[0] == 255 && pixel[1] == 255 && pixel[2] == 255 ? 0 : alpha;
}

int hand_out(Gdiplus::Bitmap* bitmap, void** image) {
  if (!bitmap) return 0;
  if (image) {
    *image = bitmap;
  } else {
    delete bitmap;
  }
  return 1;
}

bool valid_size(int width, int height) { return width > 0 && height > 0; }

// Bottom-up rows of `source_row` bytes flipped into top-down rows of
// `target_row` bytes; `pixel` writes one pixel from its source bytes.
template <class PixelCopy>
std::vector<BYTE> flip_rows(const BYTE* bits, int width, int height, std::size_t source_row,
                            std::size_t source_pixel, std::size_t target_row, PixelCopy pixel) {
  std::vector<BYTE> target(target_row * static_cast<std::size_t>(height));
  for (int row = 0; row < height; ++row) {
    const BYTE* in = bits + source_row * static_cast<std::size_t>(height - 1 - row);
    BYTE* out = target.data() + target_row * static_cast<std::size_t>(row);
    for (int x = 0; x < width; ++x, in += source_pixel, out += 4) pixel(in, out);
  }
  return target;
}

Gdiplus::PixelFormat format_for_mode(int mode) {
  return mode == 1 ? PixelFormat32bppRGB : PixelFormat32bppARGB;
}

int white_keyed(const BYTE* bits, int width, int height, std::size_t source_row,
                std::size_t target_row, BYTE alpha, int useAlpha, void** image) {
  // The per-pixel copy always steps four bytes, whatever the row lengths.
  std::vector<BYTE> target =
      flip_rows(bits, width, height, source_row, 4, target_row, [alpha](const BYTE* in, BYTE* out) {
        out[0] = in[0], out[1] = in[1], out[2] = in[2];
        out[3] = white_keyed_alpha(in, alpha);
      });
  const auto format = useAlpha != 0 ? PixelFormat32bppARGB : PixelFormat24bppRGB;
  return hand_out(owned_copy(target.data(), width, height, static_cast<int>(target_row), format,
                             Backdrop::kWhitePixels),
                  image);
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmap24BPPRGB(int width, int height, int stride,
                                                               int, unsigned char* bits,
                                                               void** image) {
  if (!bits || !valid_size(width, height)) return 0;
  return guard_export(0, [&] {
    return hand_out(owned_copy(bits, width, height, stride, PixelFormat24bppRGB, Backdrop::kNone),
                    image);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusBitmapFromBits(unsigned char* bits, int width,
                                                            int height, int srcBytesPerPixel,
                                                            int dstBytesPerPixel,
                                                            unsigned char alpha, int useAlpha,
                                                            void** image) {
  if (!bits || !valid_size(width, height) || srcBytesPerPixel < 4 || dstBytesPerPixel < 4) return 0;
  return guard_export(0, [&] {
    const auto w = static_cast<std::size_t>(width);
    return white_keyed(bits, width, height, w * static_cast<std::size_t>(srcBytesPerPixel),
                       w * static_cast<std::size_t>(dstBytesPerPixel), alpha, useAlpha, image);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusBitmapFromRamStruct(const RamStruct* ram, int alpha,
                                                                 int useAlpha, void** image) {
  if (!ram || !ram->bits || !valid_size(ram->width, ram->height) || ram->bytesPerPixel < 4)
    return 0;
  return guard_export(0, [&] {
    const std::size_t row =
        static_cast<std::size_t>(ram->width) * static_cast<std::size_t>(ram->bytesPerPixel);
    return white_keyed(ram->bits, ram->width, ram->height, row, row, static_cast<BYTE>(alpha),
                       useAlpha, image);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmap(int width, int height, int stride, int mode,
                                                       unsigned char* bits, void** image) {
  if (mode == 0) return gdiPlusGetBitmap24BPPRGB(width, height, stride, 0, bits, image);
  if (!bits || !valid_size(width, height) || stride < width * 4) return 0;
  return guard_export(0, [&] {
    const auto row = static_cast<std::size_t>(stride);
    std::vector<BYTE> target(row * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
      const BYTE* in = bits + row * static_cast<std::size_t>(y);
      BYTE* out = target.data() + row * static_cast<std::size_t>(y);
      for (int x = 0; x < width; ++x, in += 4, out += 4)
        out[0] = in[0], out[1] = in[1], out[2] = in[2], out[3] = 255;
    }
    return hand_out(
        owned_copy(target.data(), width, height, stride, format_for_mode(mode), Backdrop::kNone),
        image);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapEx(int width, int height, int srcStride,
                                                         int dstStride, int mode,
                                                         unsigned char alpha, unsigned char* bits,
                                                         void** image) {
  if (mode == 0) return gdiPlusGetBitmap24BPPRGB(width, height, srcStride, 0, bits, image);
  if (!bits || !valid_size(width, height) || srcStride < width * 3 || dstStride < width * 4)
    return 0;
  return guard_export(0, [&] {
    std::vector<BYTE> target =
        flip_rows(bits, width, height, static_cast<std::size_t>(srcStride), 3,
                  static_cast<std::size_t>(dstStride), [alpha](const BYTE* in, BYTE* out) {
                    out[0] = in[0], out[1] = in[1], out[2] = in[2], out[3] = alpha;
                  });
    return hand_out(
        owned_copy(target.data(), width, height, dstStride, format_for_mode(mode), Backdrop::kNone),
        image);
  });
}
