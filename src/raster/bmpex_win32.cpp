// The device side of the bmpEx family: device bitmaps and device contexts.
#include <windows.h>

#include "qnutil/gdi_win32.h"
#include "raster/bmpex_call.h"

using qnutil::raster::with_bitmap;

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromHBitmap(bmpExHandle handle, HBITMAP bitmap) {
  return with_bitmap(handle, [&](CQnBitmap& image) { image.LoadFromHBitmap(bitmap); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExSave(bmpExHandle handle, HBITMAP* bitmap) {
  return with_bitmap(handle, [&](CQnBitmap& image) { image.SaveToHBitmap(bitmap); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExDraw(bmpExHandle handle, HDC dc) {
  return with_bitmap(handle, [&](CQnBitmap& image) { image.Draw(dc); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExDraw2(bmpExHandle handle, HDC dc, int x, int y,
                                                 int width, int height) {
  return with_bitmap(handle, [&](CQnBitmap& image) { image.StretchDraw(dc, x, y, width, height); });
}
