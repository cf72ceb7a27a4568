// The two path gradients (Verlauf: gradient; Rechteck: rectangle).
#include "gdiplus/drawing_styles.h"

using namespace qnutil::gdiplus;

namespace {

// GDI+ gives the last listed surround colour to every remaining boundary
// point, so one colour serves the whole edge.
void set_edge_colour(Gdiplus::PathGradientBrush& brush, COLORREF edge) {
  if (brush.GetPointCount() < 1) return;
  const Gdiplus::Color colour = opaque_colorref(edge);
  INT count = 1;
  brush.SetSurroundColors(&colour, &count);
}

void fill_rectangle(HDC dc, Gdiplus::PathGradientBrush& brush, int x, int y, int width,
                    int height) {
  Gdiplus::Graphics graphics(dc);
  graphics.SetPageUnit(Gdiplus::UnitPixel);
  graphics.FillRectangle(&brush, x, y, width, height);
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusVerlaufPolygon(HDC dc, const POINT* points, int count,
                                                            int centerX, int centerY, int x, int y,
                                                            int width, int height,
                                                            unsigned long centerColor,
                                                            unsigned long edgeColor) {
  Gdiplus::PathGradientBrush brush(reinterpret_cast<const Gdiplus::Point*>(points), count,
                                   Gdiplus::WrapModeClamp);
  brush.SetCenterPoint(Gdiplus::Point(centerX, centerY));
  brush.SetCenterColor(opaque_colorref(centerColor));
  set_edge_colour(brush, edgeColor);
  fill_rectangle(dc, brush, x, y, width, height);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusVerlaufRechteck(HDC dc, int x, int y, int width,
                                                             int height, unsigned long centerColor,
                                                             unsigned long edgeColor) {
  Gdiplus::GraphicsPath path;
  path.AddRectangle(Gdiplus::Rect(x, y, width, height));
  Gdiplus::PathGradientBrush brush(&path);
  brush.SetCenterColor(opaque_colorref(centerColor));
  set_edge_colour(brush, edgeColor);
  fill_rectangle(dc, brush, x, y, width, height);
  return 1;
}
