// Rotated arcs and ellipses, filled polygons and rectangles.
#include "gdiplus/drawing_styles.h"

using namespace qnutil::gdiplus;

namespace {

// The frame of the rotated exports: pixel units, rotated about the centre
// for the drawing, the transform reset afterwards.
template <class Draw>
void draw_rotated(HDC dc, float cx, float cy, float rotation, Draw draw) {
  Gdiplus::Graphics graphics(dc);
  graphics.SetPageUnit(Gdiplus::UnitPixel);
  rotate_about(graphics, cx, cy, rotation);
  draw(graphics);
  graphics.ResetTransform();
}

const Gdiplus::Color kBlack(0xFF000000);

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedArc(HDC dc, int x, int y, int w, int h,
                                                            float cx, float cy, float startAngle,
                                                            float sweepAngle, float rotation) {
  draw_rotated(dc, cx, cy, rotation, [&](Gdiplus::Graphics& graphics) {
    const Gdiplus::Pen pen(kBlack, 1.0f);
    graphics.DrawArc(&pen, x, y, w, h, startAngle, sweepAngle);
  });
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedArcRGB(HDC dc, int x, int y, int w, int h,
                                                               float cx, float cy, float startAngle,
                                                               float sweepAngle, float rotation,
                                                               int lineStyle, float width, int red,
                                                               int green, int blue) {
  draw_rotated(dc, cx, cy, rotation, [&](Gdiplus::Graphics& graphics) {
    graphics.DrawArc(styled_pen(red, green, blue, width, lineStyle).get(), x, y, w, h, startAngle,
                     sweepAngle);
  });
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedEllipse(HDC dc, int x, int y, int w, int h,
                                                                float cx, float cy,
                                                                float rotation) {
  draw_rotated(dc, cx, cy, rotation, [&](Gdiplus::Graphics& graphics) {
    const Gdiplus::Pen pen(kBlack, 1.0f);
    graphics.DrawEllipse(&pen, x, y, w, h);
  });
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedEllipseRGB(
    HDC dc, int x, int y, int w, int h, float cx, float cy, float rotation, int lineStyle,
    float penWidth, int penRed, int penGreen, int penBlue, int fillAlpha, int fillStyle,
    int fillRed, int fillGreen, int fillBlue) {
  draw_rotated(dc, cx, cy, rotation, [&](Gdiplus::Graphics& graphics) {
    if (const auto brush = fill_brush(fillStyle, argb(fillAlpha, fillRed, fillGreen, fillBlue))) {
      graphics.FillEllipse(brush.get(), x, y, w, h);
    }
    graphics.DrawEllipse(styled_pen(penRed, penGreen, penBlue, penWidth, lineStyle).get(), x, y, w,
                         h);
  });
  return 1;
}

namespace {

// The host's POINT records are GDI+ integer points (two 32-bit values).
const Gdiplus::Point* as_points(const POINT* points) {
  return reinterpret_cast<const Gdiplus::Point*>(points);
}
static_assert(sizeof(POINT) == sizeof(Gdiplus::Point));

Gdiplus::Status fill_polygon(HDC dc, const Gdiplus::Brush& brush, const POINT* points, int count) {
  Gdiplus::Graphics graphics(dc);
  graphics.SetPageUnit(Gdiplus::UnitPixel);
  return graphics.FillPolygon(&brush, as_points(points), count, Gdiplus::FillModeAlternate);
}

}  // namespace

// The second argument belongs to the exported signature but is never read.
extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFillPolygon(HDC dc, int, int alpha, int red, int green,
                                                         int blue, const POINT* points, int count) {
  const Gdiplus::SolidBrush brush(argb(alpha, red, green, blue));
  return fill_polygon(dc, brush, points, count) == Gdiplus::Ok ? 1 : 0;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFillPolygonEX(HDC dc, int, int fillStyle, int alpha,
                                                           int red, int green, int blue,
                                                           const POINT* points, int count) {
  if (const auto brush = fill_brush(fillStyle, argb(alpha, red, green, blue))) {
    fill_polygon(dc, *brush, points, count);
  }
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusFillRect(HDC dc, int alpha, int red, int green,
                                                      int blue, int width, int height) {
  Gdiplus::Graphics graphics(dc);
  const Gdiplus::SolidBrush brush(argb(alpha, red, green, blue));
  return graphics.FillRectangle(&brush, 0, 0, width, height) == Gdiplus::Ok ? 1 : 0;
}
