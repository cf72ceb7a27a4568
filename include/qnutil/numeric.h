/*
 * Numeric and text helpers.
 *
 * Numbers: rounding, trigonometry in degrees, division guarded against a
 * zero divisor, a sign function and text-to-number conversion. They are
 * stateless and reentrant, never fail and let NaN and infinity propagate
 * by the usual floating-point rules. Results are identical on every target
 * (powers of ten are exact, no FMA contraction).
 *
 * Text: UTF-8 conversion, position searches and trimming in place for
 * 8-bit strings in the ANSI code page (Windows-1252 on POSIX), aware of
 * the double-byte characters of East Asian code pages.
 */
#ifndef QNUTIL_NUMERIC_H
#define QNUTIL_NUMERIC_H

#include "common.h"

QNUTIL_EXTERN_C_BEGIN

/**
 * Rounds x half up (toward positive infinity) at the decimal position 10^p:
 * floor(x / 10^p + 0.5) * 10^p. p = 0 rounds to whole numbers, p = -2 to
 * hundredths, p = 2 to hundreds; -2.5 with p = 0 gives -2.
 */
QNUTIL_API double QNUTIL_CALL QnUtil_PRound(double x, int p);

/** QnUtil_PRound for single precision: computed in double precision from x,
 *  converted to float at the end. */
QNUTIL_API float QNUTIL_CALL QnUtil_FRound(float x, int p);

/**
 * Integer part of x, fraction dropped toward zero (2.9 gives 2, -2.9 gives
 * -2): this does not round. The result always lies in the 32-bit range;
 * NaN and values whose integer part leaves that range give -2147483648
 * (the x86 integer-indefinite value) on every platform.
 */
QNUTIL_API long QNUTIL_CALL QnUtil_LRound(double x);

/** sin of an angle in degrees. */
QNUTIL_API double QNUTIL_CALL sin_deg(double degrees);

/** cos of an angle in degrees. */
QNUTIL_API double QNUTIL_CALL cos_deg(double degrees);

/**
 * acos(x * pi / 180), in radians. The argument is scaled as if it were an
 * angle, unlike atan_deg; callers rely on this, so acos_deg(1) is about
 * 1.5533 and |x| above about 57.3 gives NaN.
 */
QNUTIL_API double QNUTIL_CALL acos_deg(double x);

/** atan(x), in degrees. */
QNUTIL_API double QNUTIL_CALL atan_deg(double x);

/** atan2(y, x), in degrees. */
QNUTIL_API double QNUTIL_CALL atan2_deg(double y, double x);

/** a / b, or 0.0 when b compares equal to zero (either sign; no tolerance). */
QNUTIL_API double QNUTIL_CALL ddiv(double a, double b);

/**
 * a / b in single precision, or 0.0f when b compares equal to zero.
 * The exported symbol is "fdiv". glibc's <math.h> declares a C function of
 * that name with other parameters (float fdiv(double, double)), so GCC and
 * Clang builds outside Windows declare it as qnutil_fdiv bound to the
 * symbol "fdiv"; qnutil_fdiv is the portable spelling on every platform.
 */
#if defined(__GNUC__) && !defined(_WIN32)
QNUTIL_API float QNUTIL_CALL qnutil_fdiv(float a, float b) __asm__("fdiv");
#else
QNUTIL_API float QNUTIL_CALL fdiv(float a, float b);
#define qnutil_fdiv fdiv
#endif

/** -1.0 when x < 0, 1.0 when x > 0, 0.0 otherwise (either zero and NaN). */
QNUTIL_API double QNUTIL_CALL fsgn(double x);

/**
 * Decimal text to double as the C library's strtod in the "C" locale reads
 * it: leading white space skipped, an optional sign, trailing characters
 * ignored, 0.0 when no number starts the text, +-HUGE_VAL on overflow.
 * Hexadecimal notation is not recognised ("0x10" gives 0). A null text
 * gives negative infinity.
 */
QNUTIL_API double QNUTIL_CALL QnUtil_StringToDouble(const char* text);

/**
 * UTF-8 to an 8-bit string: the text is decoded to UTF-16 as the platform
 * does it (ill-formed sequences become U+FFFD) and each UTF-16 unit
 * is stored as its low byte, without any replacement character: U+00E4
 * gives 0xE4, U+20AC gives 0xAC. out needs one byte per UTF-16 unit plus
 * the terminator. Returns 1, or 0 for empty input (out then untouched).
 */
QNUTIL_API int QNUTIL_CALL ConvertFromUTF8(const char* utf8, char* out);

/**
 * ANSI text to UTF-8 (the platform's conversion through UTF-16). out needs
 * up to three bytes per input byte plus the terminator. Returns 1, or 0
 * for empty input (out then untouched).
 */
QNUTIL_API int QNUTIL_CALL ConvertToUTF8(const char* text, char* out);

/**
 * Byte index of the first single-byte character c in s, or -1. Case
 * sensitive ("I" stands for the index); trail bytes of double-byte
 * characters never match. c = '\0' finds the terminator.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_StrIChr(const char* s, char c);

/**
 * Byte index of the first occurrence of sub in s that starts on a
 * character boundary, or -1. Case sensitive; an empty sub gives 0.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_StrIPos(const char* s, const char* sub);

/**
 * Removes leading white space (0x09-0x0D, 0x20) in place; the bytes freed
 * at the end of the original text are set to zero. Returns s.
 */
QNUTIL_API char* QNUTIL_CALL QnUtil_StrLTrim(char* s);

/** Exactly QnUtil_StrLTrim: it trims the START of s, not the end (kept
 *  for the host's callers; use QnUtil_StrTrim to trim the end). Returns s. */
QNUTIL_API char* QNUTIL_CALL QnUtil_StrRTrim(char* s);

/** Removes leading and trailing white space in place as QnUtil_StrLTrim
 *  does; double-byte characters are never white space. Returns s. */
QNUTIL_API char* QNUTIL_CALL QnUtil_StrTrim(char* s);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_NUMERIC_H */
