// The bmpEx family: the plain C boundary over CQnBitmap. A handle is the
// object's address; the result says only whether a handle was given.
#include <memory>
#include <mutex>
#include <vector>

#include "frame/export_guard.h"
#include "qnutil/raster.h"
#include "raster/bmpex_call.h"
#include "raster/qn_bitmap.h"

using qnutil::frame::guard_export;
using qnutil::raster::bitmap_of;
using qnutil::raster::with_bitmap;

extern "C" QNUTIL_API int QNUTIL_CALL bmpExInit(bmpExHandle* handle) {
  return guard_export(0, [&] {
    auto bitmap = std::make_unique<CQnBitmap>();
    // Objects live until the process ends; keeping them listed says so to
    // leak checkers and costs a pointer each.
    static std::mutex lock;
    static auto* objects = new std::vector<std::unique_ptr<CQnBitmap>>;
    std::lock_guard<std::mutex> guard(lock);
    objects->push_back(std::move(bitmap));
    *handle = reinterpret_cast<bmpExHandle>(objects->back().get());
    return 1;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoad(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Load(path); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits(bmpExHandle handle, const void* bits) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits(bits); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits2(bmpExHandle handle, const void* bits,
                                                         int hasFileHeader) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits2(bits, hasFileHeader); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits3(bmpExHandle handle,
                                                         const QnBmpFileHeader* fileHeader,
                                                         const QnBmpInfoHeader* infoHeader,
                                                         const void* data) {
  if (!handle) return 0;
  // Missing headers describe nothing to load; the object stays as it was.
  if (!fileHeader || !infoHeader) return 1;
  // The headers are taken by value before the loader runs, as callers have
  // always been able to rely on.
  const QnBmpFileHeader file = *fileHeader;
  const QnBmpInfoHeader info = *infoHeader;
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits3(file, info, data); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExSaveToFile(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.SaveToFile(path); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExSaveAtEnd(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.SaveAtEnd(path); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExGetSize(bmpExHandle handle, int* width, int* height) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) {
    if (width) *width = bitmap.Width();
    if (height) *height = bitmap.Height();
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExCrop(bmpExHandle handle, int x, int y, int width,
                                                int height) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Crop(x, y, width, height); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExFlip(bmpExHandle handle, int horizontal) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) {
    horizontal ? bitmap.FlipHorizontal() : bitmap.FlipVertical();
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExThreshold(bmpExHandle handle, int level) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Threshold(level); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExBlur(bmpExHandle handle) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Blur(); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExBrightness(bmpExHandle handle, int delta) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Brightness(delta); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExContrast(bmpExHandle handle, int level) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Contrast(level); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExTint(bmpExHandle handle, unsigned int colour) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Tint(colour); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExConvertHsi(bmpExHandle handle, int toHsi) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { toHsi ? bitmap.ToHSI() : bitmap.FromHSI(); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExDrawBitmap(bmpExHandle handle, int x, int y, int width,
                                                      int height, bmpExHandle source, int sx,
                                                      int sy, int sWidth, int sHeight, int opacity,
                                                      int mode) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) {
    bitmap.SetInterpolationMode(mode);
    bitmap.DrawBitmap(x, y, width, height, bitmap_of(source), sx, sy, sWidth, sHeight, opacity);
  });
}
