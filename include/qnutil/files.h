/*
 * Paths, directory listing, fixed-width text fields, buffered files with a
 * byte-order header, and the search for the host's configuration file.
 *
 * Paths are 8-bit strings in the ANSI code page; every scan is aware of
 * double-byte characters, so a trail byte equal to '\\' is not a separator.
 * Composed paths are lower-cased on Windows (drive letter included); POSIX
 * builds use '/', have no drive letters and keep the case.
 */
#ifndef QNUTIL_FILES_H
#define QNUTIL_FILES_H

#include <stdint.h>
#include <stdio.h>

#include "common.h"

/* Sizes of path pieces and of a composed path, terminator included. */
#define QNUTIL_DRIVE_SIZE 3
#define QNUTIL_FOLDER_SIZE 256
#define QNUTIL_NAME_SIZE 256
#define QNUTIL_PATH_SIZE 260

QNUTIL_EXTERN_C_BEGIN

/**
 * Splits path into drive ("C:" or empty), folder (with its trailing
 * separator where present) and name (file name and extension joined).
 * drive, dir and name must hold QNUTIL_DRIVE_SIZE, QNUTIL_FOLDER_SIZE and
 * QNUTIL_NAME_SIZE bytes; longer pieces are cut. A null path yields three
 * empty pieces. Always returns 0.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_Divide(const char* path, char* drive, char* dir, char* name);

/**
 * Composes file under sub under base into out (QNUTIL_PATH_SIZE bytes) and
 * returns out; returns null, writing nothing, when out is null.
 * A relative file goes under sub and that under base; a piece with a
 * drive ignores the pieces further out. A last folder name without
 * trailing separator still counts as a folder, and a separator is never
 * doubled at a joint. Any piece may be null; all null gives "". The result
 * is lower-cased on Windows. A result longer than the buffer is cut.
 */
QNUTIL_API char* QNUTIL_CALL QnUtil_Makepath(char* out, const char* base, const char* sub,
                                             const char* file);

/**
 * Index of the extension's dot in name: the last '.' at an index >= 1
 * (folder separators are not a barrier, so "dir.d\\file" answers 3), or -1
 * (also for a null name).
 */
QNUTIL_API int QNUTIL_CALL QnUtil_GetExtensionPos(const char* name);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_FILES_H */
