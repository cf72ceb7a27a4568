// GDI+ bitmaps that own their pixels, made from pixels the caller or a
// temporary buffer only lends.
#pragma once

#include "gdiplus/gdiplus_sdk.h"

namespace qnutil::gdiplus {

// How the owned copy is prepared before the borrowed pixels are drawn in.
enum class Backdrop { kNone, kWhitePixels };

// A new bitmap of the same size and format holding a copy of the
// width x height pixels at scan0 (stride bytes per row, top-down), or null
// when the pixels cannot be wrapped. scan0 may be freed afterwards.
Gdiplus::Bitmap* owned_copy(BYTE* scan0, int width, int height, int stride,
                            Gdiplus::PixelFormat format, Backdrop backdrop);

}  // namespace qnutil::gdiplus
