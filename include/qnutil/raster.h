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
 *
 * Objects are never destroyed: the library keeps every one it made
 * reachable until the process ends.
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
  uint16_t bfType;      /**< 0x4D42, "BM" */
  uint32_t bfSize;      /**< size of the whole file in bytes */
  uint16_t bfReserved1; /**< reserved, 0 */
  uint16_t bfReserved2; /**< reserved, 0 */
  uint32_t bfOffBits;   /**< offset of the pixel rows from the start of the file */
} QnBmpFileHeader;

/** The 40-byte BMP info header (layout of the platform's BITMAPINFOHEADER). */
typedef struct QnBmpInfoHeader {
  uint32_t biSize;         /**< size of this header, 40 */
  int32_t biWidth;         /**< width in pixels */
  int32_t biHeight;        /**< height in pixels; positive: rows bottom-up */
  uint16_t biPlanes;       /**< 1 */
  uint16_t biBitCount;     /**< bits per pixel */
  uint32_t biCompression;  /**< compression kind; 0 for uncompressed rows */
  uint32_t biSizeImage;    /**< size of the pixel rows in bytes (may be 0 when uncompressed) */
  int32_t biXPelsPerMeter; /**< horizontal resolution, pixels per metre */
  int32_t biYPelsPerMeter; /**< vertical resolution, pixels per metre */
  uint32_t biClrUsed;      /**< colours in the palette; 0 for the depth's full count */
  uint32_t biClrImportant; /**< colours needed to show the picture; 0 for all */
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
QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits2(bmpExHandle handle, const void* bits,
                                              int hasFileHeader);

/** Loads from separately supplied headers (both copied before anything
 *  else; a null one does nothing) and the palette-and-pixels data (null
 *  does nothing). */
QNUTIL_API int QNUTIL_CALL bmpExLoadFromBits3(bmpExHandle handle, const QnBmpFileHeader* fileHeader,
                                              const QnBmpInfoHeader* infoHeader, const void* data);

/** Writes the image as a 24-bit BMP file at path (created or truncated).
 *  An empty object writes nothing. */
QNUTIL_API int QNUTIL_CALL bmpExSaveToFile(bmpExHandle handle, const char* path);

/** Appends the image as a 24-bit BMP file image to the end of the existing
 *  file at path. A missing file is left missing and nothing is written. */
QNUTIL_API int QNUTIL_CALL bmpExSaveAtEnd(bmpExHandle handle, const char* path);

/* Further operations on an image object, offered by this library beyond
 * the original bmpEx family (the engine has them; these make them reachable
 * from C). Same handle and result rules as above; all work on the picture
 * with row 0 at the top and do nothing on an empty object. */

/** Stores the picture's width and height (either pointer may be null). An
 *  empty object reports the size its header describes. */
QNUTIL_API int QNUTIL_CALL bmpExGetSize(bmpExHandle handle, int* width, int* height);

/** Keeps only the rectangle (clamped to the picture). */
QNUTIL_API int QNUTIL_CALL bmpExCrop(bmpExHandle handle, int x, int y, int width, int height);

/** Mirrors left to right (horizontal != 0) or top to bottom. */
QNUTIL_API int QNUTIL_CALL bmpExFlip(bmpExHandle handle, int horizontal);

/** Black-and-white threshold: luminance 76 R + 150 G + 29 B above
 *  level × 256 (level 0..255) turns a pixel black, otherwise white. */
QNUTIL_API int QNUTIL_CALL bmpExThreshold(bmpExHandle handle, int level);

/** 3 × 3 box blur (edge pixels repeated, means truncated). */
QNUTIL_API int QNUTIL_CALL bmpExBlur(bmpExHandle handle);

/** Adds delta (-255..255) to every colour channel, clamped to 0..255. */
QNUTIL_API int QNUTIL_CALL bmpExBrightness(bmpExHandle handle, int delta);

/** Pulls every channel toward 128 by the factor 256 / level (level 1..100;
 *  1 leaves the image as it is). */
QNUTIL_API int QNUTIL_CALL bmpExContrast(bmpExHandle handle, int level);

/** Moves every pixel toward colour (0x00RRGGBB) by the colour's intensity. */
QNUTIL_API int QNUTIL_CALL bmpExTint(bmpExHandle handle, unsigned int colour);

/** toHsi != 0: replaces every pixel by its packed hue/saturation/intensity
 *  form (hue in the red byte, intensity in the blue one); 0: converts such
 *  an image back to colours. Each direction runs only from the other form. */
QNUTIL_API int QNUTIL_CALL bmpExConvertHsi(bmpExHandle handle, int toHsi);

/** Draws the source rectangle (sx, sy, sWidth, sHeight) of source scaled
 *  into the rectangle (x, y, width, height) of handle's picture, mixed by
 *  opacity in per cent. Extents are inclusive: a width w covers w + 1
 *  columns. mode 0 takes the nearest pixel, 1 interpolates bilinearly,
 *  2 smooths (area average when reducing, bicubic when enlarging); it
 *  becomes the image's interpolation mode. A null source does nothing. */
QNUTIL_API int QNUTIL_CALL bmpExDrawBitmap(bmpExHandle handle, int x, int y, int width, int height,
                                           bmpExHandle source, int sx, int sy, int sWidth,
                                           int sHeight, int opacity, int mode);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_RASTER_H */
