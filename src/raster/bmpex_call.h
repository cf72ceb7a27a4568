// How every bmpEx export reaches its object: a handle is the object's
// address; the result says only whether a handle was given.
#pragma once

#include "frame/export_guard.h"
#include "qnutil/raster.h"
#include "raster/qn_bitmap.h"

namespace qnutil::raster {

inline CQnBitmap* bitmap_of(bmpExHandle handle) { return reinterpret_cast<CQnBitmap*>(handle); }

// Runs the operation on the handle's object; 0 for a null handle, else 1
// whatever the operation found. Nothing thrown inside gets out.
template <class Operation>
int with_bitmap(bmpExHandle handle, Operation&& operation) {
  if (!handle) return 0;
  return frame::guard_export(1, [&] {
    operation(*bitmap_of(handle));
    return 1;
  });
}

}  // namespace qnutil::raster
