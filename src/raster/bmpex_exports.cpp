// The bmpEx family: the plain C boundary over CQnBitmap. A handle is the
// object's address; the result says only whether a handle was given.
#include <new>

#include "frame/export_guard.h"
#include "qnutil/raster.h"
#include "raster/qn_bitmap.h"

using qnutil::frame::guard_export;

namespace {

CQnBitmap* bitmap_of(bmpExHandle handle) { return reinterpret_cast<CQnBitmap*>(handle); }

// Runs the operation on the handle's object; 0 for a null handle, else 1
// whatever the operation found. Loaders may allocate, so nothing thrown
// inside gets out.
template <class Operation>
int with_bitmap(bmpExHandle handle, Operation&& operation) {
  if (!handle) return 0;
  return guard_export(1, [&] {
    operation(*bitmap_of(handle));
    return 1;
  });
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL bmpExInit(bmpExHandle* handle) {
  auto* bitmap = new (std::nothrow) CQnBitmap;
  if (!bitmap) return 0;
  *handle = reinterpret_cast<bmpExHandle>(bitmap);
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoad(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.Load(path); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits(bmpExHandle handle, const void* bits) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits(bits); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits2(bmpExHandle handle, const void* bits, int hasFileHeader) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits2(bits, hasFileHeader); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits3(bmpExHandle handle, const QnBmpFileHeader* fileHeader,
                                                         const QnBmpInfoHeader* infoHeader, const void* data) {
  if (!handle) return 0;
  // The headers are taken by value before the loader runs, as callers have
  // always been able to rely on.
  const QnBmpFileHeader file = *fileHeader;
  const QnBmpInfoHeader info = *infoHeader;
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.LoadFromBits3(file, info, data); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExSaveToFile(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.SaveToFile(path); });
}

extern "C" QNUTIL_API int QNUTIL_CALL bmpExSaveAtEnd(bmpExHandle handle, const char* path) {
  return with_bitmap(handle, [&](CQnBitmap& bitmap) { bitmap.SaveAtEnd(path); });
}
