/*
 * Windows only: GDI+ imaging and drawing. POSIX builds have none of these
 * exports; this header then declares nothing.
 *
 * gdiPlusInit starts the GDI+ session before any other call, gdiPlusExit
 * ends it after the last. Image handles are the GDI+ SDK's own
 * Gdiplus::Bitmap objects and surface handles its Gdiplus::Graphics
 * objects, passed as void*; they are released only with gdiPlusFreeImage
 * and gdiPlusFreeGraphics. Results are 1 for success and 0 for failure
 * unless a function says otherwise; GDI+ errors after an object exists are
 * recorded in that object's last status instead.
 *
 * Colours: ARGB from separate bytes (alpha, red, green, blue; each an int
 * whose low byte is used), or a COLORREF 0x00BBGGRR drawn opaque.
 * Line styles: 1 solid, 2 dash, 3 dot, 4 dash-dot, 5 dash-dot-dot, 6 custom
 * without pattern, others solid. Fill styles: 1 solid, 2 horizontal,
 * 3 vertical, 4 forward diagonal, 5 backward diagonal, 6 cross, 7 diagonal
 * cross hatch (over white of the same alpha), others no fill.
 * Rotated shapes turn by the angle in degrees (clockwise with y down)
 * about the centre (cx, cy). Pen widths of the RGB exports are multiplied
 * by 10.
 */
#ifndef QNUTIL_GDIPLUS_WIN32_H
#define QNUTIL_GDIPLUS_WIN32_H

#include "common.h"

#ifdef _WIN32

struct HBITMAP__;
struct HDC__;
struct tagBITMAPINFO;
struct tagPOINT;

QNUTIL_EXTERN_C_BEGIN

/** Description of a raw 32-bit image: rows bottom-up, B, G, R, X bytes. */
typedef struct RamStruct {
  unsigned char* bits;
  int reserved;      /* not read */
  int height;        /* rows */
  int width;         /* pixels per row */
  int bytesPerPixel; /* row length = width * bytesPerPixel; 4 */
} RamStruct;

/** Starts the GDI+ session once per process (later calls do nothing); 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusInit(void);
/** Ends the GDI+ session; 1. Every handle must be freed before. */
QNUTIL_API int QNUTIL_CALL gdiPlusExit(void);
/** Does nothing; 1 (kept for the host's load sequence). */
QNUTIL_API int QNUTIL_CALL gdiPlusLoad(void);

/**
 * New image from a bottom-up buffer (row length width * srcBytesPerPixel)
 * copied top-down (row length width * dstBytesPerPixel): bytes 0-2 as they
 * stand, byte 3 the alpha, or 0 for pure white (255, 255, 255) pixels.
 * 32bpp ARGB when useAlpha != 0, else 24bpp RGB. Caller memory is not kept.
 */
QNUTIL_API int QNUTIL_CALL gdiPlusBitmapFromBits(unsigned char* bits, int width, int height,
                                                 int srcBytesPerPixel, int dstBytesPerPixel,
                                                 unsigned char alpha, int useAlpha, void** image);
/** gdiPlusBitmapFromBits for the image a RamStruct describes (4 bytes per
 *  pixel both sides; the low byte of alpha is used). */
QNUTIL_API int QNUTIL_CALL gdiPlusBitmapFromRamStruct(const RamStruct* ram, int alpha, int useAlpha,
                                                      void** image);
/**
 * New image from a top-down buffer. mode 0: 24bpp RGB as
 * gdiPlusGetBitmap24BPPRGB; otherwise 4 bytes per pixel with alpha 255
 * everywhere, 32bpp RGB for mode 1 and 32bpp ARGB for other modes.
 */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmap(int width, int height, int stride, int mode,
                                            unsigned char* bits, void** image);
/**
 * New image from a bottom-up 24-bit buffer (B, G, R; srcStride per row),
 * flipped top-down into 4 bytes per pixel (dstStride per row) with the
 * given alpha everywhere. mode 0: as gdiPlusGetBitmap24BPPRGB with srcStride;
 * mode 1: 32bpp RGB; other modes: 32bpp ARGB.
 */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapEx(int width, int height, int srcStride, int dstStride,
                                              int mode, unsigned char alpha, unsigned char* bits,
                                              void** image);
/** New 24bpp RGB image copied from a top-down buffer with the given stride;
 *  the buffer need only live for the call. `unused` is not read. */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmap24BPPRGB(int width, int height, int stride, int unused,
                                                    unsigned char* bits, void** image);

/** New image from a DIB (header and bits). */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapFromBitmapInfo(const struct tagBITMAPINFO* info,
                                                          void* bits, void** image);
/** New image from a device bitmap (no palette). */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapFromHBitmap(struct HBITMAP__* bitmap, void** image);
/** New image decoded from a file in any format GDI+ reads (ANSI path). */
QNUTIL_API int QNUTIL_CALL gdiPlusGetBitmapFromFile(const char* path, void** image);
/** New 32bpp ARGB image of width x height at 600 dpi: the device bitmap
 *  stretched with high-quality bicubic interpolation. */
QNUTIL_API int QNUTIL_CALL gdiPlusResizeBitmap(struct HBITMAP__* bitmap, int width, int height,
                                               void** image);

/** The CLSID (16 bytes) of the installed encoder whose MIME type equals
 *  mimeType exactly (case-sensitive); 0 when there is none. */
QNUTIL_API int QNUTIL_CALL gdiPlusGetEncoderClsid(const char* mimeType, void* clsid);
/**
 * Saves the image: format 1 JPEG, 2 GIF, 3 TIFF, 4 PNG, anything else BMP,
 * always with quality 100. 0 for a null image, else 1: the save's own
 * status is in the image's last status.
 */
QNUTIL_API int QNUTIL_CALL gdiPlusSaveImage(void* image, const char* path, int format);
/** Diagnostic: saves the 280 x 290 screen block at (98, 116) as
 *  "qnutil-screen.bmp" in the temporary folder; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusScreen(void);

/** New surface on the image (null in *graphics and 1 when out of memory);
 *  0 for a null image. */
QNUTIL_API int QNUTIL_CALL gdiPlusGetGraphicsFromBitmap(void* image, void** graphics);
/** New surface on the device context (null in *graphics when out of
 *  memory); 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusGetGraphicsFromHDC(struct HDC__* dc, void** graphics);
/** The surface's device context in *dc (0 on failure); give it back with
 *  gdiPlusFreeHDC before drawing again. 0 for a null surface. */
QNUTIL_API int QNUTIL_CALL gdiPlusGetHDCFromGraphics(void* graphics, struct HDC__** dc);
/** Gives back a device context of gdiPlusGetHDCFromGraphics. */
QNUTIL_API int QNUTIL_CALL gdiPlusFreeHDC(void* graphics, struct HDC__* dc);
/** Releases a surface; 0 for null. */
QNUTIL_API int QNUTIL_CALL gdiPlusFreeGraphics(void* graphics);
/** Releases an image; 0 for null. */
QNUTIL_API int QNUTIL_CALL gdiPlusFreeImage(void* image);
/** Prepends a translation by (dx, dy) to the surface's world transform. */
QNUTIL_API int QNUTIL_CALL gdiPlusSetOrigin(void* graphics, float dx, float dy);
/** Clears the device context to the opaque colour; 1 when GDI+ did. */
QNUTIL_API int QNUTIL_CALL gdiPlusClearGraphics(struct HDC__* dc, unsigned char red,
                                                unsigned char green, unsigned char blue);

/** Draws the image at (x, y), one image pixel per device pixel (the image's
 *  resolution is set to the device's when they differ). Ok-status. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage(void* image, struct HDC__* dc, float x, float y);
/** Clears the DC to white, draws the image into the parallelogram of its
 *  upper-left, upper-right and lower-left corners. Ok-status. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage2(void* image, struct HDC__* dc, int x1, int y1, int x2,
                                             int y2, int x3, int y3);
/**
 * Clears the DC to white, then draws the source rectangle
 * (X * a, Y + H * c, W * b, Y + H * c + H * d) of the image bounds
 * (X, Y, W, H) into (X, Y, W, H) (the asymmetries are intended). Ok-status.
 */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawImage3(void* image, struct HDC__* dc, float a, float b,
                                             float c, float d);
/** Clears the DC to white, draws the image at (x, y) with its own alpha. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawTranspImage(void* image, struct HDC__* dc, int x, int y);

/** Black 1-unit arc of the ellipse in (x, y, w, h), rotated; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedArc(struct HDC__* dc, int x, int y, int w, int h,
                                                 float cx, float cy, float startAngle,
                                                 float sweepAngle, float rotation);
/** The arc with an opaque pen of the colour, style and width * 10; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedArcRGB(struct HDC__* dc, int x, int y, int w, int h,
                                                    float cx, float cy, float startAngle,
                                                    float sweepAngle, float rotation, int lineStyle,
                                                    float width, int red, int green, int blue);
/** Black 1-unit outline of the ellipse in (x, y, w, h), rotated; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedEllipse(struct HDC__* dc, int x, int y, int w, int h,
                                                     float cx, float cy, float rotation);
/** The rotated ellipse filled by fill style and colour, then outlined with
 *  an opaque pen of the pen colour, style and width * 10; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusDrawRotatedEllipseRGB(struct HDC__* dc, int x, int y, int w,
                                                        int h, float cx, float cy, float rotation,
                                                        int lineStyle, float penWidth, int penRed,
                                                        int penGreen, int penBlue, int fillAlpha,
                                                        int fillStyle, int fillRed, int fillGreen,
                                                        int fillBlue);
/** Solid ARGB fill of the polygon (alternate rule); `unused` is not read.
 *  Ok-status. */
QNUTIL_API int QNUTIL_CALL gdiPlusFillPolygon(struct HDC__* dc, int unused, int alpha, int red,
                                              int green, int blue, const struct tagPOINT* points,
                                              int count);
/** The polygon filled by fill style; `unused` is not read; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusFillPolygonEX(struct HDC__* dc, int unused, int fillStyle,
                                                int alpha, int red, int green, int blue,
                                                const struct tagPOINT* points, int count);
/** Solid ARGB fill of (0, 0, width, height). Ok-status. */
QNUTIL_API int QNUTIL_CALL gdiPlusFillRect(struct HDC__* dc, int alpha, int red, int green,
                                           int blue, int width, int height);
/** Fills the rectangle with a path gradient over the polygon from the
 *  centre colour at (centerX, centerY) to the edge colour; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusVerlaufPolygon(struct HDC__* dc, const struct tagPOINT* points,
                                                 int count, int centerX, int centerY, int x, int y,
                                                 int width, int height, unsigned long centerColor,
                                                 unsigned long edgeColor);
/** Fills the rectangle with a gradient from the centre colour at its
 *  middle to the edge colour at its border; 1. */
QNUTIL_API int QNUTIL_CALL gdiPlusVerlaufRechteck(struct HDC__* dc, int x, int y, int width,
                                                  int height, unsigned long centerColor,
                                                  unsigned long edgeColor);

QNUTIL_EXTERN_C_END

#if defined(__cplusplus) && !defined(_MSC_VER)
/** Clears the DC to white, scales by (scaleX, scaleY) and draws the image
 *  at (x, y). 1 when the draw succeeded. C++ linkage: this is its form for
 *  GCC-built programs; MSVC hosts find theirs in mfc_classes_win32.h. */
QNUTIL_API int QNUTIL_CALL gdiPlusPrintImage(void* image, struct HDC__* dc, int x, int y,
                                             float scaleX, float scaleY);
#endif

#endif /* _WIN32 */

#endif /* QNUTIL_GDIPLUS_WIN32_H */
