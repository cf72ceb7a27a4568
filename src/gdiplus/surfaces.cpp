// Drawing surfaces (GDI+ graphics objects) and releasing handles.
#include "gdiplus/gdiplus_sdk.h"

using qnutil::gdiplus::as_bitmap;
using qnutil::gdiplus::as_graphics;

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetGraphicsFromBitmap(void* image, void** graphics) {
  if (!image) return 0;
  auto* surface = new Gdiplus::Graphics(as_bitmap(image));
  if (graphics) {
    *graphics = surface;
  } else {
    delete surface;
  }
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetGraphicsFromHDC(HDC dc, void** graphics) {
  auto* surface = new Gdiplus::Graphics(dc);
  if (graphics) {
    *graphics = surface;
  } else {
    delete surface;
  }
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetHDCFromGraphics(void* graphics, HDC* dc) {
  if (!graphics) return 0;
  const HDC got = as_graphics(graphics)->GetHDC();
  if (dc) *dc = got;
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFreeHDC(void* graphics, HDC dc) {
  if (!graphics) return 0;
  as_graphics(graphics)->ReleaseHDC(dc);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFreeGraphics(void* graphics) {
  if (!graphics) return 0;
  delete as_graphics(graphics);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFreeImage(void* image) {
  if (!image) return 0;
  delete as_bitmap(image);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusSetOrigin(void* graphics, float dx, float dy) {
  if (!graphics) return 0;
  as_graphics(graphics)->TranslateTransform(dx, dy, Gdiplus::MatrixOrderPrepend);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusClearGraphics(HDC dc, unsigned char red,
                                                           unsigned char green,
                                                           unsigned char blue) {
  Gdiplus::Graphics graphics(dc);
  return graphics.Clear(Gdiplus::Color(255, red, green, blue)) == Gdiplus::Ok ? 1 : 0;
}
