/*
 * Windows only: GDI bitmap helpers and the device side of the bmpEx family
 * (device bitmaps and device contexts). POSIX builds have none of these
 * exports; this header then declares nothing.
 *
 * The handles are spelt as the structs behind the platform's STRICT handle
 * types (HBITMAP is struct HBITMAP__*, and so on), so this header needs no
 * <windows.h> and accepts its handles unchanged.
 */
#ifndef QNUTIL_GDI_WIN32_H
#define QNUTIL_GDI_WIN32_H

#include "common.h"
#include "raster.h"

#ifdef _WIN32

struct HBITMAP__;
struct HDC__;
struct HRGN__;

QNUTIL_EXTERN_C_BEGIN

/**
 * Region of every pixel of bitmap that does not have the key colour. The
 * key is compared in 0x00RRGGBB order (red in bits 16-23), that is with red
 * and blue exchanged against a COLORREF; the fourth byte of a pixel is
 * ignored. Rows of the region run top-down from y = 0; each run of
 * non-key pixels is one rectangle one pixel high. Returns a region the
 * caller deletes with DeleteObject (empty when every pixel is the key), or
 * NULL when bitmap is null or a device context or bitmap could not be made.
 */
QNUTIL_API struct HRGN__* QNUTIL_CALL QnUtil_CreateRegionFromBitmap(struct HBITMAP__* bitmap,
                                                                    uint32_t key);

/**
 * Draws the width × height rectangle at (sourceX, sourceY) of bitmap into
 * target at (x, y) in the flat embossed look of a disabled control: the
 * rectangle is filled with the 3D-face colour; dark source pixels appear in
 * the 3D-shadow colour with a 3D-highlight copy one pixel right and down
 * (which may reach one pixel beyond the rectangle); light pixels show the
 * face colour.
 */
QNUTIL_API void QNUTIL_CALL QnUtil_DrawEmbossedBitmap(struct HDC__* target, int x, int y, int width,
                                                      int height, struct HBITMAP__* bitmap,
                                                      int sourceX, int sourceY);

/**
 * Draws the whole bitmap into target at (x, y), leaving the target as it
 * was wherever the bitmap has the colour transparent (a COLORREF,
 * 0x00BBGGRR). bitmap must not be selected into another device context.
 */
QNUTIL_API void QNUTIL_CALL QnUtil_DrawTransparentBitmap(struct HDC__* target,
                                                         struct HBITMAP__* bitmap, short x, short y,
                                                         unsigned long transparent);

/**
 * Loads the image from a device bitmap of more than 8 bits per pixel
 * (16-bit pixels are read as 5-5-5 with unscaled channels); a bitmap of 8
 * bits or fewer, or a null or invalid one, leaves the object empty.
 * Returns 0 for a null handle, else 1.
 */
QNUTIL_API int QNUTIL_CALL bmpExLoadFromHBitmap(bmpExHandle handle, struct HBITMAP__* bitmap);

/**
 * Creates a 32-bit device bitmap of the image and stores it in *bitmap,
 * but only when *bitmap is null and the object holds an image; otherwise
 * nothing is created and *bitmap is left as it was. The caller deletes the
 * new bitmap with DeleteObject. Returns 0 for a null handle, else 1.
 */
QNUTIL_API int QNUTIL_CALL bmpExSave(bmpExHandle handle, struct HBITMAP__** bitmap);

/** Draws the image unscaled at (0, 0) of dc (nothing for an empty object).
 *  Returns 0 for a null handle, else 1. */
QNUTIL_API int QNUTIL_CALL bmpExDraw(bmpExHandle handle, struct HDC__* dc);

/** Draws the image scaled into the rectangle (x, y, width, height) of dc,
 *  copying (no blending). Returns 0 for a null handle, else 1. */
QNUTIL_API int QNUTIL_CALL bmpExDraw2(bmpExHandle handle, struct HDC__* dc, int x, int y, int width,
                                      int height);

QNUTIL_EXTERN_C_END

#endif /* _WIN32 */

#endif /* QNUTIL_GDI_WIN32_H */
