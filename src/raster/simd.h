// SSE2 is the baseline of every target the library ships for (x86-64, and
// i686 built with -msse2); other processors take the scalar loops.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define QNUTIL_RASTER_SSE2 1
#endif
