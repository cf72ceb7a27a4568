#include "gdiplus/drawing_styles.h"

namespace qnutil::gdiplus {

Gdiplus::Color argb(int alpha, int red, int green, int blue) {
  return Gdiplus::Color(static_cast<BYTE>(alpha), static_cast<BYTE>(red), static_cast<BYTE>(green),
                        static_cast<BYTE>(blue));
}

Gdiplus::Color opaque_colorref(COLORREF color) {
  return Gdiplus::Color(255, GetRValue(color), GetGValue(color), GetBValue(color));
}

namespace {

Gdiplus::DashStyle dash_style(int line_style) {
  switch (line_style) {
    case 2: return Gdiplus::DashStyleDash;
    case 3: return Gdiplus::DashStyleDot;
    case 4: return Gdiplus::DashStyleDashDot;
    case 5: return Gdiplus::DashStyleDashDotDot;
    case 6: return Gdiplus::DashStyleCustom;  // no pattern is ever set
    default: return Gdiplus::DashStyleSolid;
  }
}

}  // namespace

std::unique_ptr<Gdiplus::Pen> styled_pen(int red, int green, int blue, float width,
                                         int line_style) {
  auto pen = std::make_unique<Gdiplus::Pen>(argb(255, red, green, blue), 1.0f);
  pen->SetWidth(width * 10.0f);
  pen->SetDashStyle(dash_style(line_style));
  return pen;
}

std::unique_ptr<Gdiplus::Brush> fill_brush(int fill_style, Gdiplus::Color color) {
  if (fill_style == 1) return std::make_unique<Gdiplus::SolidBrush>(color);
  if (fill_style < 2 || fill_style > 7) return nullptr;
  // Hatches are drawn over white, deliberately, unless the alpha lets the
  // background show through.
  const Gdiplus::Color white(color.GetA(), 255, 255, 255);
  return std::make_unique<Gdiplus::HatchBrush>(static_cast<Gdiplus::HatchStyle>(fill_style - 2),
                                               color, white);
}

void rotate_about(Gdiplus::Graphics& graphics, float cx, float cy, float degrees) {
  graphics.TranslateTransform(cx, cy, Gdiplus::MatrixOrderPrepend);
  graphics.RotateTransform(degrees, Gdiplus::MatrixOrderPrepend);
  graphics.TranslateTransform(-cx, -cy, Gdiplus::MatrixOrderPrepend);
}

}  // namespace qnutil::gdiplus
