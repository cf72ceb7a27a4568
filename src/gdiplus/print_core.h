// gdiPlusPrintImage has C++ linkage, so each compiler's form of it (the GCC
// one for MinGW programs, the MSVC one for MSVC hosts) is a thin call of
// this one implementation.
#ifndef QNUTIL_GDIPLUS_PRINT_CORE_H
#define QNUTIL_GDIPLUS_PRINT_CORE_H

#ifdef __cplusplus
extern "C" {
#endif

struct HDC__;

int qnutil_gdiplus_print_image(void* image, struct HDC__* dc, int x, int y, float scale_x,
                               float scale_y);

#ifdef __cplusplus
}
#endif

#endif /* QNUTIL_GDIPLUS_PRINT_CORE_H */
