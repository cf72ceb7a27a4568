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

/* Flag bits of QnUtilDirEntry.flags; exactly one of FILE and FOLDER is set. */
#define QNUTIL_ENTRY_FILE 0x001
#define QNUTIL_ENTRY_FOLDER 0x002
#define QNUTIL_ENTRY_READONLY 0x008
#define QNUTIL_ENTRY_HIDDEN 0x040
#define QNUTIL_ENTRY_SYSTEM 0x080
#define QNUTIL_ENTRY_ARCHIVE 0x200

/** One entry of a folder listing: 272 bytes on every target, walked by index. */
#pragma pack(push, 1)
typedef struct QnUtilDirEntry {
  char name[256];      /**< file name without folder, NUL-terminated */
  uint32_t flags;      /**< QNUTIL_ENTRY_* bits */
  uint32_t size;       /**< size in bytes, low 32 bits */
  uint32_t mtime;      /**< last write, seconds since 1970-01-01 UTC; 315529200
                          (1 January 1980, 00:00 CET) when unknown */
  uint8_t reserved[4]; /**< not written */
} QnUtilDirEntry;
#pragma pack(pop)

/* Mode bits of fio_open: exactly one of READ, WRITE and APPEND. */
#define QNUTIL_FIO_READ 1    /* "r" */
#define QNUTIL_FIO_WRITE 2   /* "w", truncating */
#define QNUTIL_FIO_APPEND 4  /* "a" */
#define QNUTIL_FIO_UPDATE 8  /* "+": the other direction too */
#define QNUTIL_FIO_TEXT 16   /* "t"; without it the stream is binary */
#define QNUTIL_FIO_HEADER 32 /* 16-byte byte-order header; ignored with APPEND or TEXT */

/* byteOrder values of an fio file. */
#define QNUTIL_FIO_LITTLE_ENDIAN 0 /* "INTEL" */
#define QNUTIL_FIO_BIG_ENDIAN 1    /* "MOTOROLA" */
#define QNUTIL_FIO_NO_HEADER (-1)  /* opened for a header that was not there */

/** An open fio file; the host may read byteOrder. */
typedef struct QnUtilFioFile {
  FILE* stream;      /**< the open C stream */
  int32_t byteOrder; /**< QNUTIL_FIO_LITTLE_ENDIAN, _BIG_ENDIAN or _NO_HEADER */
  int32_t mode;      /**< the mode bits given to fio_open */
  char* path;        /**< the composed path ("????" if it could not be copied) */
} QnUtilFioFile;

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

/**
 * Lists the entries of dir (null or "" for the current folder) matching
 * pattern ('*' and '?'; null or "" for "*.*"), in the order the file
 * system yields them, "." and ".." included when they match. The third
 * argument is ignored. On success returns 0 with *list a block of *count
 * records to release with QnUtil_FreeEntries. Returns -1 with *list null
 * and *count 0 when the folder is missing or nothing matches (or list or
 * count is null), and 0 with an empty result when memory is short.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_Listdir(const char* dir, const char* pattern,
                                          unsigned int ignored, QnUtilDirEntry** list,
                                          unsigned int* count);

/** Releases a block from QnUtil_Listdir and sets *list to null; null is fine. */
QNUTIL_API void QNUTIL_CALL QnUtil_FreeEntries(QnUtilDirEntry** list);

/**
 * Reads one field of at most max characters from stream into buf (max + 1
 * bytes). A line feed, NUL or the end of the stream ends the field and is
 * not stored. A carriage return followed by a line feed or NUL stores that
 * character instead and leaves it to end the field ("abc\r\n" gives
 * "abc\n"); before anything else it ends the field, leaving the next
 * character unread. A carriage return at the very end pushes back the byte
 * 0xFF, which the next call reads. Returns 0, or -1 when stream or buf is
 * null, max < 1, or the stream is at its end (buf is then "").
 */
QNUTIL_API int QNUTIL_CALL QnUtil_GetString(FILE* stream, int max, char* buf);

/**
 * Writes text (null counts as "") as a field of width characters: cut when
 * longer, padded with blanks when shorter; width 0 means the text's length.
 * Returns 0, or -1 when stream is null or the last write failed.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_PutString(FILE* stream, const char* text, int width);

/**
 * Opens the file name in folder dir (composed as QnUtil_Makepath does, so
 * lower-cased on Windows) with the QNUTIL_FIO_* mode bits. With
 * QNUTIL_FIO_HEADER (and neither APPEND nor TEXT) writing puts the header
 * "1.1  @mb" "INTEL   " first; reading takes the first 8 bytes as a header
 * when they contain "@mb" or "1.1" and then byteOrder tells the next 8
 * ("MOTOROLA" is big-endian, anything else little-endian); otherwise it
 * starts again at byte 0 with byteOrder QNUTIL_FIO_NO_HEADER. Returns the
 * handle (release with fio_close), or null when not exactly one of READ,
 * WRITE and APPEND is set or the file cannot be opened.
 */
QNUTIL_API QnUtilFioFile* QNUTIL_CALL fio_open(const char* dir, const char* name, int mode);

/** Closes and releases file (null: 0). -1 when closing the stream failed, else 0. */
QNUTIL_API int QNUTIL_CALL fio_close(QnUtilFioFile* file);

/** Flushes the stream; 0, or -1 on error or a null handle. */
QNUTIL_API int QNUTIL_CALL fio_flush(QnUtilFioFile* file);

/**
 * Reads one byte. With out null returns the byte (0-255) or -1 at the end;
 * otherwise stores it in *out (0xFF at the end) and returns 0, or -1 at the end.
 */
QNUTIL_API int QNUTIL_CALL fio_getchar(QnUtilFioFile* file, unsigned char* out);

/** Writes one byte; 0, or -1 on error or a null handle. */
QNUTIL_API int QNUTIL_CALL fio_putchar(QnUtilFioFile* file, char c);

/** QnUtil_GetString on the file's stream; -1 for a null handle. */
QNUTIL_API int QNUTIL_CALL fio_getstring(QnUtilFioFile* file, int max, char* buf);

/** QnUtil_PutString on the file's stream; -1 for a null handle. */
QNUTIL_API int QNUTIL_CALL fio_putstring(QnUtilFioFile* file, const char* text, int width);

/**
 * Moves to offset from the start (origin 0), the current position (1) or
 * the end (any other origin); 0, or -1 on error or a null handle.
 */
QNUTIL_API int QNUTIL_CALL fio_seek(QnUtilFioFile* file, long offset, int origin);

/** The stream position, or -1 for a null handle. */
QNUTIL_API long QNUTIL_CALL fio_tell(QnUtilFioFile* file);

/**
 * Finds a file through the host's configuration file (the first of mb9.ini
 * ... mb1.ini, mb.ini, mb65535.ini ... mb10.ini found in the current folder, the
 * folder named by the environment variable MB, or the root of the system
 * drive - "C:\\" on Windows, "/" on POSIX). out holds QNUTIL_PATH_SIZE bytes.
 * - name null: out = the configuration file's path.
 * - name present in the current folder: out = that path (composed, so
 *   lower-cased on Windows); else present in the MB folder: out = that path.
 * - section or key null or empty: out = the configuration file's path,
 *   composed (deliberately not name).
 * - else the value of key in section is a ';'-separated list of folders and
 *   out = the first folder's path that holds name; a missing key reads as
 *   the one folder "_TheDefault_".
 * Returns 0, or -1 when nothing was found, the value is empty or out is null.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_MB_SucheDatei(const char* section, const char* key,
                                                const char* name, char* out);

/**
 * Reads the folder stored under key in section of the configuration file
 * into out (QNUTIL_PATH_SIZE bytes, composed and so lower-cased on
 * Windows). Returns 0, or -1 after reporting "Es konnte keine mb.ini
 * (mb[1-9].ini) gefunden werden!" (no configuration file) or "Sektion
 * <section> oder Eintrag <key> in <file> nicht gefunden!" (empty value)
 * through QnUtil_Message (unit "qnutilmisc"); -1 silently for a null out.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_MB_SuchePfad(const char* section, const char* key, char* out);

/**
 * Reads the value of key in section of the INI file file into buf; *len is
 * buf's size. A missing key reads as "_TheDefault_". When the value is
 * shorter than *len - 1 it is copied and the rest of the *len - 1 bytes
 * zero-filled, *len unchanged; otherwise *len is set to the value's length
 * and the whole value with its terminator is copied: buf must have room
 * for the longest value the caller expects. Returns 0, 6 for an empty
 * value, -1 when file, buf or len is null.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_MB_IniReadString(const char* file, const char* section,
                                                   const char* key, char* buf, int* len);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_FILES_H */
