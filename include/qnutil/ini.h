/*
 * INI persistence: scalar values and number lists in INI files (mini_*),
 * drawing style records stored as number lists, and the material record.
 *
 * A mini handle is bound to one existing INI file. Every read reports a
 * status: 0 for a value, -1 for a missing key (or section or file), a
 * NULL argument or a malformed value; outputs are left alone on -1.
 * Writes return 0 on success and -1 on failure. Files are read and
 * written through the platform's private-profile functions (on POSIX the
 * library's own engine with the same results): sections and keys are
 * matched without regard to case, values have their surrounding blanks
 * and one pair of matching quotes removed.
 *
 * C++ callers also get the classes CQnIniFile and CQnMatFile.
 */
#ifndef QNUTIL_INI_H
#define QNUTIL_INI_H

#include <stdint.h>

#include "common.h"

/** Mode bit of mini_open / mini_open_ex: open for reading (else writing). */
#define QNUTIL_MINI_READ 0x10

/** Handle of an INI file opened with mini_open or mini_open_ex. */
typedef struct QnUtilMiniFile* MiniHandle;

/* Drawing style records, stored as comma-separated number lists. Colours
 * are 0x00BBGGRR words: red in the low byte, then green and blue. */
#pragma pack(push, 1)

/** Fill style, 15 bytes without padding; the list holds style, param, the
 *  three bytes of color, param2, the three bytes of color2, param3. */
typedef struct FillStyleRec {
  uint8_t style;   /**< fill kind, host-defined */
  uint32_t param;  /**< first parameter of the fill kind */
  uint32_t color;  /**< first colour, 0x00BBGGRR */
  uint8_t param2;  /**< second parameter of the fill kind */
  uint32_t color2; /**< second colour, 0x00BBGGRR */
  uint8_t param3;  /**< third parameter of the fill kind */
} FillStyleRec;

/** A GUID in the platform's layout (16 bytes). */
typedef struct QnUtilGuid {
  uint32_t Data1;   /**< first group, 8 hex digits in registry form */
  uint16_t Data2;   /**< second group, 4 hex digits */
  uint16_t Data3;   /**< third group, 4 hex digits */
  uint8_t Data4[8]; /**< last 8 bytes, in the order they are written */
} QnUtilGuid;

/** Fill style followed directly by a GUID, 31 bytes; the GUID is stored
 *  under the key with "GUID" appended, in registry form. */
typedef struct FillStyleExRec {
  FillStyleRec fill; /**< the fill style, stored as mini_write_fillstyle does */
  QnUtilGuid guid;   /**< the GUID, stored under the key with "GUID" appended */
} FillStyleExRec;

#pragma pack(pop)

/** Pen style (natural alignment, 12 bytes): style, width, red, green, blue. */
typedef struct PenStyleRec {
  int32_t style;  /**< line kind, host-defined */
  float width;    /**< line width */
  uint32_t color; /**< line colour, 0x00BBGGRR */
} PenStyleRec;

/** Texture properties (natural alignment, 52 bytes), 13 numbers: enabled,
 *  values[0..7], flag2, flag3, value9, value10. The flags are 1 or 0. */
typedef struct TexPropsRec {
  int32_t enabled; /**< 1 when the texture is used, else 0 */
  float values[8]; /**< the eight host-defined texture numbers, in list order */
  int32_t flag2;   /**< host-defined flag, 1 or 0 */
  int32_t flag3;   /**< host-defined flag, 1 or 0 */
  float value9;    /**< host-defined number after the flags */
  float value10;   /**< host-defined number, last in the list */
} TexPropsRec;

/** Material record of CQnMatFile (sixteen 32-bit fields, 64 bytes). */
typedef struct matTyp {
  float RGBDiffus[3];  /**< diffuse colour red, green, blue, 0 to 1 */
  float RGBSpiegel[3]; /**< specular colour red, green, blue, 0 to 1 */
  float alpha;         /**< alpha value (key "alpha"; 0.4 when missing) */
  float kambient;      /**< ambient coefficient */
  float kdiffus;       /**< diffuse coefficient */
  float kspiegel;      /**< specular coefficient */
  float Oe;            /**< specular exponent */
  float oeInvPow;      /**< derived: -1 / Oe^1.5, or 0 for Oe <= 0.1 */
  float oeOffset;      /**< derived: Oe^1.5 - 1 / (1 + 1 / Oe^1.5), or 0 */
  float oePow;         /**< derived: Oe^1.5, or 0 */
  uint32_t reserved;   /**< 0 after a load */
  uint32_t Bits;       /**< host-defined bit set; bit 0 is never stored */
} matTyp;

QNUTIL_EXTERN_C_BEGIN

/**
 * Opens the INI file name in folder dir: the path is composed with
 * QnUtil_Makepath(buf, "", dir, name) (lower-cased on Windows), then opened
 * as mini_open_ex does. Returns the handle or NULL.
 */
QNUTIL_API MiniHandle QNUTIL_CALL mini_open(const char* dir, const char* name, int mode);

/**
 * Opens the existing INI file path: for reading when mode has
 * QNUTIL_MINI_READ set (the file must be readable), else for writing (it
 * must be writable). Returns NULL for a NULL or empty path, a file that
 * does not exist or is not accessible that way, or no memory. Release the
 * handle with mini_close.
 */
QNUTIL_API MiniHandle QNUTIL_CALL mini_open_ex(const char* path, int mode);

/**
 * Releases *handle. Returns 1 after releasing it, 0 when handle or *handle
 * is NULL. The caller's variable is not cleared.
 */
QNUTIL_API int QNUTIL_CALL mini_close(MiniHandle* handle);

/** Reads the value's leading integer (C strtol, saturated to 32 bits; an
 *  empty value gives 0) into *out. */
QNUTIL_API int QNUTIL_CALL mini_read_long(MiniHandle handle, const char* section, const char* key,
                                          long* out);

/** Reads the value's leading number (C strtod) into *out; -1 also for an
 *  empty value and for a value that reads as positive infinity. */
QNUTIL_API int QNUTIL_CALL mini_read_double(MiniHandle handle, const char* section, const char* key,
                                            double* out);

/**
 * Reads a list of numbers such as "1,2.5,-3" into out[0..*count-1]: each
 * number (C strtod) is followed by exactly one separator character of any
 * kind, so "1 2 3" reads too, while "1,2," and an empty value fail. *count
 * is the capacity on entry (at least 1) and the number of values read on
 * success; reading stops when the capacity is reached. On failure values
 * stored so far stay in out and *count is unchanged.
 */
QNUTIL_API int QNUTIL_CALL mini_read_doubles(MiniHandle handle, const char* section,
                                             const char* key, double* out, int* count);

/**
 * Reads the value into buf. A value of *len bytes or more is cut to *len
 * bytes (never inside a double-byte character), terminated at buf[*len],
 * and *len stays; a shorter value is copied whole and *len set to its
 * length. buf must hold *len + 1 bytes.
 */
QNUTIL_API int QNUTIL_CALL mini_read_string(MiniHandle handle, const char* section, const char* key,
                                            char* buf, unsigned int* len);

/** Writes value formatted "%ld" (as a 32-bit int). */
QNUTIL_API int QNUTIL_CALL mini_write_long(MiniHandle handle, const char* section, const char* key,
                                           long value);

/** Writes value formatted "%lg": six significant digits, exponent notation
 *  for very small or large values, the locale's decimal mark. */
QNUTIL_API int QNUTIL_CALL mini_write_double(MiniHandle handle, const char* section,
                                             const char* key, double value);

/**
 * Writes values[0..n-1] as one list joined by ",": a value without
 * fraction as a 32-bit integer ("%d"; values beyond that range appear as
 * -2147483648), others as "%f" with "." as decimal mark. n <= 0 writes an
 * empty value. values may be NULL only when n <= 0.
 */
QNUTIL_API int QNUTIL_CALL mini_write_doubles(MiniHandle handle, const char* section,
                                              const char* key, const double* values, int n);

/** Writes value verbatim (no quoting). */
QNUTIL_API int QNUTIL_CALL mini_write_string(MiniHandle handle, const char* section,
                                             const char* key, const char* value);

/*
 * Style records. Writers round every field with QnUtil_PRound (whole
 * numbers for style and colour bytes, 5 decimals otherwise) and store the
 * list with mini_write_doubles; a param of 2^31 or more therefore appears
 * as -2147483648. Readers take up to 10, 5 or 13 numbers: integers and
 * bytes are truncated toward zero (bytes keep their low 8 bits), floats
 * converted to single precision, flags are 1 when the magnitude is at
 * least 0.0001; fields without a number in a short list become 0. A
 * missing key or malformed list gives -1 and leaves the record untouched.
 */
QNUTIL_API int QNUTIL_CALL mini_read_fillstyle(MiniHandle handle, const char* section,
                                               const char* key, FillStyleRec* style);
QNUTIL_API int QNUTIL_CALL mini_write_fillstyle(MiniHandle handle, const char* section,
                                                const char* key, const FillStyleRec* style);
/** As mini_read_fillstyle, then the GUID from key + "GUID" (keys of at
 *  most 250 bytes). -1 when that key is missing or its text is no GUID;
 *  the fill fields have been read by then. */
QNUTIL_API int QNUTIL_CALL mini_read_fillstyle_ex(MiniHandle handle, const char* section,
                                                  const char* key, FillStyleExRec* style);
/** As mini_write_fillstyle, then the GUID as upper-case registry text
 *  "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" under key + "GUID". */
QNUTIL_API int QNUTIL_CALL mini_write_fillstyle_ex(MiniHandle handle, const char* section,
                                                   const char* key, const FillStyleExRec* style);
QNUTIL_API int QNUTIL_CALL mini_read_penstyle(MiniHandle handle, const char* section,
                                              const char* key, PenStyleRec* pen);
QNUTIL_API int QNUTIL_CALL mini_write_penstyle(MiniHandle handle, const char* section,
                                               const char* key, const PenStyleRec* pen);
/** As mini_write_penstyle, but each colour byte is divided by 255 before
 *  rounding, so it is stored as 0 (below 128) or 1; mini_read_penstyle
 *  reads it back as it stands. */
QNUTIL_API int QNUTIL_CALL mini_write_penstyleEX(MiniHandle handle, const char* section,
                                                 const char* key, const PenStyleRec* pen);
QNUTIL_API int QNUTIL_CALL mini_read_texprops(MiniHandle handle, const char* section,
                                              const char* key, TexPropsRec* props);
QNUTIL_API int QNUTIL_CALL mini_write_texprops(MiniHandle handle, const char* section,
                                               const char* key, const TexPropsRec* props);

QNUTIL_EXTERN_C_END

/* The classes with std::string, for GCC-built programs; MSVC hosts include
 * mfc_classes_win32.h instead. */
#if defined(__cplusplus) && !defined(_MSC_VER)
#include "CQnIniFile.h"
#include "CQnMatFile.h"
#endif

#endif /* QNUTIL_INI_H */
