// The GDI+ SDK as this family uses it: the C++ wrapper classes, whose
// objects (allocated with GdipAlloc through their operator new) are the
// handles handed to callers.
#pragma once

#include <windows.h>
#include <objidl.h>  // PROPID and IStream, left out by WIN32_LEAN_AND_MEAN
#include <gdiplus.h>

#include "qnutil/gdiplus_win32.h"

namespace qnutil::gdiplus {

inline Gdiplus::Bitmap* as_bitmap(void* image) { return static_cast<Gdiplus::Bitmap*>(image); }
inline Gdiplus::Graphics* as_graphics(void* graphics) {
  return static_cast<Gdiplus::Graphics*>(graphics);
}

}  // namespace qnutil::gdiplus
