#include "gdiplus/owned_copy.h"

#include <memory>

namespace qnutil::gdiplus {

Gdiplus::Bitmap* owned_copy(BYTE* scan0, int width, int height, int stride,
                            Gdiplus::PixelFormat format, Backdrop backdrop) {
  const std::unique_ptr<Gdiplus::Bitmap> borrowed{
      new Gdiplus::Bitmap(width, height, stride, format, scan0)};
  if (!borrowed || borrowed->GetLastStatus() != Gdiplus::Ok) return nullptr;
  auto* owned = new Gdiplus::Bitmap(width, height, format);
  if (!owned) return nullptr;
  Gdiplus::Graphics graphics(owned);
  if (backdrop == Backdrop::kWhitePixels) {
    graphics.SetPageUnit(Gdiplus::UnitPixel);
    graphics.Clear(Gdiplus::Color(0xFFFFFFFF));
  }
  graphics.DrawImage(borrowed.get(), 0, 0, static_cast<INT>(borrowed->GetWidth()),
                     static_cast<INT>(borrowed->GetHeight()));
  return owned;
}

}  // namespace qnutil::gdiplus
