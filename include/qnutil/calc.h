/*
 * Calculator client: expressions, queries and number/text conversions in
 * the host's own notation, forwarded to the host's calculator COM component
 * (class {9BA593B7-2640-493B-AA8A-B3D9172337C1}, interface
 * {9464C5B0-CAB6-4093-A21D-4572A1B7513E}). The library connects on first
 * use and keeps the connection until it unloads; all evaluation happens in
 * the component. Texts are converted between the ANSI code page and the
 * component's wide strings.
 *
 * While no component can be reached every call shows the message box
 * "Keine Verbindung zum Calculator(COM-Objekt)" and does nothing else (the
 * conversions return QNUTIL_CALC_FAILED). POSIX builds have no COM: every
 * call takes that path.
 */
#ifndef QNUTIL_CALC_H
#define QNUTIL_CALC_H

#include "common.h"

/* Status of the conversions: success, and calculator missing or failed.
 * Other values are the calculator's own statuses, passed through. */
#define QNUTIL_CALC_OK 4096
#define QNUTIL_CALC_FAILED 4102

QNUTIL_EXTERN_C_BEGIN

/** Initialises the calculator with arg (interface slot 17); its result is
 *  ignored. */
QNUTIL_API void QNUTIL_CALL calc_init(long arg);

/** Passes expression (null is passed as an empty string) and the two
 *  arguments to the calculator's evaluation (slot 18); the result is
 *  ignored. */
QNUTIL_API void QNUTIL_CALL calc_expression(const char* expression, long arg1, long arg2);

/**
 * Asks the calculator for an error text (slot 19) with the three arguments
 * and copies it, terminated, into text; the caller guarantees the room (no
 * size is passed). text is left untouched when the call fails, returns no
 * string, or text is null.
 */
QNUTIL_API void QNUTIL_CALL calc_error(long arg1, long arg2, long arg3, char* text);

/**
 * Evaluates text with the calculator (slot 20: text, mode → value,
 * status). Returns the calculator's status and stores the value in *out
 * only when it is QNUTIL_CALC_OK; returns QNUTIL_CALC_FAILED when the
 * calculator is missing or the call fails. out may be null to ask for the
 * status alone.
 */
QNUTIL_API int QNUTIL_CALL ConvStringToDouble(const char* text, int mode, double* out);

/**
 * Formats value with the calculator (slot 21: value and the format
 * controls a, b, c → text, status). When the status is QNUTIL_CALC_OK the
 * text is copied, terminated, into out (the caller guarantees the room; an
 * empty result copies ""). Returns the status, or QNUTIL_CALC_FAILED when
 * the calculator is missing or the call fails. out may be null.
 */
QNUTIL_API int QNUTIL_CALL ConvDoubleToString(double value, int a, int b, int c, char* out);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_CALC_H */
