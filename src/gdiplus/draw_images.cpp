// Images drawn onto device contexts.
#include "gdiplus/gdiplus_sdk.h"

using qnutil::gdiplus::as_bitmap;

namespace {

int ok(Gdiplus::Status status) { return status == Gdiplus::Ok ? 1 : 0; }

// A graphics object on the DC in pixel units, optionally cleared to white.
struct PixelSurface {
  Gdiplus::Graphics graphics;
  PixelSurface(HDC dc, bool clear_white) : graphics(dc) {
    graphics.SetPageUnit(Gdiplus::UnitPixel);
    if (clear_white) graphics.Clear(Gdiplus::Color(0xFFFFFFFF));
  }
};

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage(void* image, HDC dc, float x, float y) {
  if (!image) return 0;
  PixelSurface surface(dc, false);
  Gdiplus::Bitmap* bitmap = as_bitmap(image);
  const float dpi_x = surface.graphics.GetDpiX(), dpi_y = surface.graphics.GetDpiY();
  if (bitmap->GetHorizontalResolution() != dpi_x || bitmap->GetVerticalResolution() != dpi_y) {
    bitmap->SetResolution(dpi_x, dpi_y);
  }
  return ok(surface.graphics.DrawImage(bitmap, x, y));
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage2(void* image, HDC dc, int x1, int y1, int x2,
                                                        int y2, int x3, int y3) {
  if (!image) return 0;
  PixelSurface surface(dc, true);
  const Gdiplus::Point corners[3] = {{x1, y1}, {x2, y2}, {x3, y3}};
  return ok(surface.graphics.DrawImage(as_bitmap(image), corners, 3));
}

// The source rectangle is kept exactly as the host's callers know it: the
// horizontal start scales the bounds' X by a (no effect for bounds at 0),
// and the source height includes the vertical start.
extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage3(void* image, HDC dc, float a, float b,
                                                        float c, float d) {
  if (!image) return 0;
  Gdiplus::Graphics graphics(dc);
  graphics.Clear(Gdiplus::Color(0xFFFFFFFF));
  Gdiplus::RectF bounds;
  Gdiplus::Unit unit;
  as_bitmap(image)->GetBounds(&bounds, &unit);
  const float top = bounds.Y + bounds.Height * c;
  return ok(graphics.DrawImage(as_bitmap(image), bounds, bounds.X * a, top, bounds.Width * b,
                               top + bounds.Height * d, Gdiplus::UnitPixel));
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawTranspImage(void* image, HDC dc, int x, int y) {
  if (!image) return 0;
  Gdiplus::Graphics graphics(dc);
  graphics.Clear(Gdiplus::Color(0xFFFFFFFF));
  return ok(graphics.DrawImage(as_bitmap(image), x, y));
}
