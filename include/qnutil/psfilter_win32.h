/*
 * QnUtil filter plug-in host: image filters in the published Photoshop
 * filter plug-in format (modules of kind "8BFM" carrying "PIPL" property
 * lists), loaded and run over 32-bit images.
 *
 * Windows builds only: a plug-in is a Windows DLL of the process's own
 * architecture (entry property "wx86" for 32-bit, "8664" for 64-bit
 * modules). Elsewhere this header declares nothing and the library exports
 * none of these functions.
 *
 * Every function returns a C boolean (bool in C++, _Bool in C), not the
 * library's 1/0 int. Only one filter may run at a time in the process, on
 * the caller's thread.
 */
#ifndef QNUTIL_PSFILTER_WIN32_H
#define QNUTIL_PSFILTER_WIN32_H

#include "common.h"

#ifdef _WIN32

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

/** A loaded filter plug-in; opaque, made by AVGetPSFilterAndInfo and
 *  destroyed by AVFreeGotPSFilter. */
typedef struct PSFilter_ PSFilter_;

/** Progress of a running filter: fraction done (0 to 1 as the plug-in
 *  reports it) and the caller's user value. Return false to ask the
 *  plug-in to cancel. */
typedef bool(QNUTIL_CALL* AVPSFilterProgressProc)(float fraction, int32_t userValue);

QNUTIL_EXTERN_C_BEGIN

/**
 * Loads the plug-in module at path and takes the first of its "PIPL"
 * property lists that describes a usable filter (kind "8BFM", interface
 * version at most 4.0, an entry point that the module exports, a category
 * and a name).
 * On success stores the filter in *filter (required), fresh copies of the
 * category and name in *category and *name (each may be null; free both
 * with AVFreeGotPSFilterInfo) and 0 in *error (may be null); returns true.
 * On failure stores null in all three, -1 in *error and returns false.
 */
QNUTIL_API bool QNUTIL_CALL AVGetPSFilterAndInfo(const char* path, char** category, char** name,
                                                 PSFilter_** filter, int32_t* error);

/** Destroys *filter (if any), unloading its module, and sets it to null.
 *  Returns true, also for a null argument. */
QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilter(PSFilter_** filter);

/** Frees the category and name texts of AVGetPSFilterAndInfo that are set
 *  and nulls their pointers; either argument may be null. Returns true. */
QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilterInfo(char** category, char** name);

/** Frees the result image of AVApplyPSFilter and nulls *image. Returns
 *  true (also when there is nothing to free). */
QNUTIL_API bool QNUTIL_CALL AVFreeGotPSFilterImage(unsigned char** image);

/** Stores in *canRepeat whether the filter keeps parameters from an earlier
 *  run, so that it can be repeated without showing its dialog. Returns
 *  true; false (and nothing stored) when filter or canRepeat is null. */
QNUTIL_API bool QNUTIL_CALL AVPSFilterCanDoLastFilter(PSFilter_* filter, bool* canRepeat);

/** Copies the name of the filter's entry point (as its property list gives
 *  it, at most 255 characters) into buffer of size bytes. Returns false,
 *  leaving buffer untouched, for null arguments or a name that does not
 *  fit. (An addition to the original interface, for tools.) */
QNUTIL_API bool QNUTIL_CALL AVGetPSFilterEntryName(PSFilter_* filter, char* buffer, int32_t size);

/**
 * Runs the filter over an image of width x height pixels, rows top-down,
 * 4 bytes per pixel (blue, green, red, alpha), rowBytes bytes per row.
 * repeatLast reuses the parameters of the last run without asking the
 * plug-in for new ones (when it kept any). progress (may be null) is called
 * with userValue whenever the plug-in reports progress or asks whether to
 * stop.
 * *resultImage receives the filtered copy (same layout; free it with
 * AVFreeGotPSFilterImage, also after a failed run that set it).
 * *result (may be null) receives the final status: 0 or positive for
 * success, negative for failure (the plug-in's error code; -1 when the
 * arguments are unusable or memory ran out). Returns true when the status
 * is not negative.
 */
QNUTIL_API bool QNUTIL_CALL AVApplyPSFilter(PSFilter_* filter, bool repeatLast,
                                            AVPSFilterProgressProc progress, int32_t userValue,
                                            const unsigned char* bits, int32_t width,
                                            int32_t height, int32_t rowBytes,
                                            unsigned char** resultImage, int32_t* result);

QNUTIL_EXTERN_C_END

#endif /* _WIN32 */

#endif /* QNUTIL_PSFILTER_WIN32_H */
