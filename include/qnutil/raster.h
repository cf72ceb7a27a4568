/*
 * QnUtil raster images: the bmpEx family.
 *
 * A bmpExHandle is the address of an image object made by bmpExInit. The
 * object holds one picture in the working format (32 bits per pixel,
 * 0x00RRGGBB words, rows bottom-up) and lives until the process ends: the
 * family has no export that destroys it.
 *
 * Every function except bmpExInit returns 0 when the handle is null and 1
 * otherwise; 1 says only that a handle was given, not that the operation
 * found a file, a supported depth or a source.
 */
#ifndef QNUTIL_RASTER_H
#define QNUTIL_RASTER_H

#include <stdint.h>

#include "common.h"

/** Opaque handle of an image object. */
typedef struct QnBitmapObject* bmpExHandle;

#pragma pack(push, 1)
/** The 14-byte BMP file header as stored in a file (layout of the
 *  platform's BITMAPFILEHEADER). */
typedef struct QnBmpFileHeader {
  uint16_t bfType; /* 0x4D42, "BM" */
  uint32_t bfSize;
  uint16_t bfReserved1;
  uint16_t bfReserved2;
  uint32_t bfOffBits;
} QnBmpFileHeader;

/** The 40-byte BMP info header (layout of the platform's BITMAPINFOHEADER). */
typedef struct QnBmpInfoHeader {
  uint32_t biSize;
  int32_t biWidth;
  int32_t biHeight; /* positive: rows bottom-up */
  uint16_t biPlanes;
  uint16_t biBitCount;
  uint32_t biCompression;
  uint32_t biSizeImage;
  int32_t biXPelsPerMeter;
  int32_t biYPelsPerMeter;
  uint32_t biClrUsed;
  uint32_t biClrImportant;
} QnBmpInfoHeader;
#pragma pack(pop)

QNUTIL_EXTERN_C_BEGIN

/** Makes a new, empty image object and stores its handle in *handle
 *  (which must not be null). Returns 1, or 0 when memory ran out (then
 *  *handle is left unchanged). The caller keeps the object for the life of
 *  the process. */
QNUTIL_API int QNUTIL_CALL bmpExInit(bmpExHandle* handle);

/** Loads the BMP file at path (8, 16, 24 or 32 bits per pixel; 1- and 4-bit
 *  files leave the object empty with their headers). A missing file or a
 *  null path leaves the previous image in place. Returns 1 for a handle. */
QNUTIL_API int QNUTIL_CALL bmpExLoad(bmpExHandle handle, const char* path);

/** Loads a BMP file image held in memory (file header, info header,
 *  palette, pixels). The memory stays the caller's; null does nothing. */
QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits(bmpExHandle handle, const void* bits);

/** As bmpExLoadFromBits when hasFileHeader is non-zero; otherwise bits
 *  starts with the 40-byte info header (a packed DIB). */
QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits2(bmpExHandle handle, const void* bits, int hasFileHeader);

/** Loads from separately supplied headers (both read before anything else
 *  and must not be null) and the palette-and-pixels data (null does
 *  nothing). */
QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits3(bmpExHandle handle, const QnBmpFileHeader* fileHeader,
                                              const QnBmpInfoHeader* infoHeader, const void* data);

/** Writes the image as a 24-bit BMP file at path (created or truncated).
 *  An empty object writes nothing. */
QNUTIL_API int QNUTIL_CALL bmpExSaveToFile(bmpExHandle handle, const char* path);

/** Appends the image as a 24-bit BMP file image to the end of the existing
 *  file at path. A missing file is left missing and nothing is written. */
QNUTIL_API int QNUTIL_CALL bmpExSaveAtEnd(bmpExHandle handle, const char* path);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_RASTER_H */
