// Encoders, saving, printing and the diagnostic screen capture.
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "frame/export_guard.h"
#include "gdiplus/gdiplus_sdk.h"
#include "gdiplus/print_core.h"
#include "numeric/text_encoding.h"

namespace {

using qnutil::frame::guard_export;
using qnutil::gdiplus::as_bitmap;

std::wstring wide_ansi(const char* text) {
  const std::u16string wide = qnutil::numeric::ansi_to_utf16(text);
  return {wide.begin(), wide.end()};
}

bool find_encoder(const char* mime_type, CLSID& clsid) {
  const std::wstring wanted = wide_ansi(mime_type);
  UINT count = 0, bytes = 0;
  Gdiplus::GetImageEncodersSize(&count, &bytes);
  if (bytes == 0) return false;
  std::vector<unsigned char> storage(bytes);
  auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(storage.data());
  if (Gdiplus::GetImageEncoders(count, bytes, encoders) != Gdiplus::Ok) return false;
  for (UINT i = 0; i < count; ++i) {
    if (encoders[i].MimeType && wanted == encoders[i].MimeType) {
      clsid = encoders[i].Clsid;
      return true;
    }
  }
  return false;
}

const char* mime_type_of_format(int format) {
  switch (format) {
    case 1: return "image/jpeg";
    case 2: return "image/gif";
    case 3: return "image/tiff";
    case 4: return "image/png";
    default: return "image/bmp";
  }
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusGetEncoderClsid(const char* mimeType, void* clsid) {
  if (!mimeType || !clsid) return 0;
  return guard_export(0, [&] {
    CLSID found;
    if (!find_encoder(mimeType, found)) return 0;
    std::memcpy(clsid, &found, sizeof found);
    return 1;
  });
}

// The encoder is not checked: with none found the save fails inside GDI+
// and only the image's last status tells.
extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusSaveImage(void* image, const char* path, int format) {
  if (!image || !path) return 0;
  return guard_export(1, [&] {
    CLSID encoder{};
    find_encoder(mime_type_of_format(format), encoder);
    ULONG quality = 100;
    Gdiplus::EncoderParameters parameters;
    parameters.Count = 1;
    parameters.Parameter[0].Guid = Gdiplus::EncoderQuality;
    parameters.Parameter[0].Type = Gdiplus::EncoderParameterValueTypeLong;
    parameters.Parameter[0].NumberOfValues = 1;
    parameters.Parameter[0].Value = &quality;
    as_bitmap(image)->Save(wide_ansi(path).c_str(), &encoder, &parameters);
    return 1;
  });
}

extern "C" int qnutil_gdiplus_print_image(void* image, HDC dc, int x, int y, float scaleX,
                                          float scaleY) {
  if (!image) return 0;
  Gdiplus::Graphics graphics(dc);
  graphics.Clear(Gdiplus::Color(0xFFFFFFFF));
  graphics.ScaleTransform(scaleX, scaleY, Gdiplus::MatrixOrderPrepend);
  return graphics.DrawImage(as_bitmap(image), x, y) == Gdiplus::Ok ? 1 : 0;
}

QNUTIL_API int QNUTIL_CALL gdiPlusPrintImage(void* image, HDC dc, int x, int y, float scaleX,
                                             float scaleY) {
  return qnutil_gdiplus_print_image(image, dc, x, y, scaleX, scaleY);
}

// The capture lands in the temporary folder as "qnutil-screen.bmp", a
// place every user may write to.
extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusScreen(void) {
  constexpr int kLeft = 98, kTop = 116, kWidth = 280, kHeight = 290;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
  HGDIOBJ previous = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, kWidth, kHeight, screen, kLeft, kTop, SRCCOPY);
  SelectObject(memory, previous);
  qnutil::frame::guard_export_void([&] {
    void* image = nullptr;
    if (gdiPlusGetBitmapFromHBitmap(bitmap, &image) != 1) return;
    const std::string path =
        (std::filesystem::temp_directory_path() / "qnutil-screen.bmp").string();
    gdiPlusSaveImage(image, path.c_str(), 0);
    gdiPlusFreeImage(image);
  });
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return 1;
}
