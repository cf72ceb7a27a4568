/*
 * QnUtil — shared utility library of the Quarn CAD application.
 *
 * Conventions shared by every family of the C interface:
 *  - exports are undecorated C functions with the cdecl calling convention
 *    on 32-bit Windows (QNUTIL_CALL);
 *  - texts are zero-terminated 8-bit strings in the process's ANSI code
 *    page (Windows-1252 on POSIX builds) unless a function says otherwise;
 *  - output texts go into caller-supplied buffers whose size counts the
 *    terminator;
 *  - whatever the library allocates is released only through its own
 *    release export; nothing is thrown across the boundary.
 */
#ifndef QNUTIL_COMMON_H
#define QNUTIL_COMMON_H

#define QNUTIL_VERSION_MAJOR 1
#define QNUTIL_VERSION_MINOR 0
#define QNUTIL_VERSION_PATCH 0
/** Packed version number of this header: major * 10000 + minor * 100 + patch. */
#define QNUTIL_VERSION \
  (QNUTIL_VERSION_MAJOR * 10000 + QNUTIL_VERSION_MINOR * 100 + QNUTIL_VERSION_PATCH)

/* Calling convention of every export; explicit on 32-bit Windows so that
 * hosts compiled with another default (e.g. /Gz) still call correctly. */
#ifndef QNUTIL_CALL
#if defined(_WIN32) && !defined(_WIN64)
#define QNUTIL_CALL __cdecl
#else
#define QNUTIL_CALL
#endif
#endif

/* Declaration attribute of every export. Define QNUTIL_STATIC when linking
 * a static build of the library into a Windows program. */
#ifndef QNUTIL_API
#if defined(_WIN32) && !defined(QNUTIL_BUILDING) && !defined(QNUTIL_STATIC)
#define QNUTIL_API __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define QNUTIL_API __attribute__((visibility("default")))
#else
#define QNUTIL_API
#endif
#endif

#ifdef __cplusplus
#define QNUTIL_EXTERN_C_BEGIN extern "C" {
#define QNUTIL_EXTERN_C_END }
#else
#define QNUTIL_EXTERN_C_BEGIN
#define QNUTIL_EXTERN_C_END
#endif

/* Result conventions of the families that report success as 0 / -1
 * (mini_*, fio_*, QnUtil_GetString/PutString, QnUtil_Listdir). */
#define QNUTIL_OK 0
#define QNUTIL_FAILED (-1)

QNUTIL_EXTERN_C_BEGIN

/** Version of the loaded library as QNUTIL_VERSION packs it; compare with
 *  the header's QNUTIL_VERSION to detect a mismatched DLL. */
QNUTIL_API long QNUTIL_CALL QnUtil_GetVersion(void);

/** Version of the loaded library as text, e.g. "1.0.0"; static storage,
 *  never freed. */
QNUTIL_API const char* QNUTIL_CALL QnUtil_GetVersionString(void);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_COMMON_H */
