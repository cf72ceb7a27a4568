// Device bitmaps, DIBs and image files as GDI+ bitmaps.
#include <memory>
#include <string>

#include "frame/export_guard.h"
#include "gdiplus/gdiplus_sdk.h"
#include "numeric/text_encoding.h"

namespace {

using qnutil::frame::guard_export;

// Hands a new bitmap out when GDI+ made it, else releases it; 1 or 0.
int hand_out(Gdiplus::Bitmap* bitmap, void** image) {
  if (!bitmap) return 0;
  if (bitmap->GetLastStatus() != Gdiplus::Ok || !image) {
    delete bitmap;
    return 0;
  }
  *image = bitmap;
  return 1;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL
gdiPlusGetBitmapFromBitmapInfo(const struct tagBITMAPINFO* info, void* bits, void** image) {
  if (!info) return 0;
  return hand_out(new Gdiplus::Bitmap(info, bits), image);
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapFromHBitmap(HBITMAP bitmap, void** image) {
  return hand_out(new Gdiplus::Bitmap(bitmap, nullptr), image);
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapFromFile(const char* path, void** image) {
  if (!path) return 0;
  return guard_export(0, [&] {
    const std::u16string wide = qnutil::numeric::ansi_to_utf16(path);
    const std::wstring name(wide.begin(), wide.end());
    return hand_out(new Gdiplus::Bitmap(name.c_str()), image);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusResizeBitmap(HBITMAP bitmap, int width, int height,
                                                          void** image) {
  const std::unique_ptr<Gdiplus::Bitmap> source{new Gdiplus::Bitmap(bitmap, nullptr)};
  if (!source || source->GetLastStatus() != Gdiplus::Ok) return 0;
  auto* target = new Gdiplus::Bitmap(width, height, PixelFormat32bppARGB);
  if (!target) return 0;
  target->SetResolution(600.0f, 600.0f);
  {
    Gdiplus::Graphics graphics(target);
    graphics.SetCompositingQuality(Gdiplus::CompositingQualityHighQuality);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeHighQuality);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHighQuality);
    graphics.DrawImage(source.get(), 0, 0, width, height);
  }
  if (image) {
    *image = target;
  } else {
    delete target;
  }
  return 1;
}
