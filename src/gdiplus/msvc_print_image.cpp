// gdiPlusPrintImage as MSVC hosts call it.
#include "gdiplus/print_core.h"
#include "qnutil/mfc_classes_win32.h"

int QNUTIL_CALL gdiPlusPrintImage(Gdiplus::Bitmap* image, HDC__* dc, int x, int y, float scaleX,
                                  float scaleY) {
  return qnutil_gdiplus_print_image(image, dc, x, y, scaleX, scaleY);
}
