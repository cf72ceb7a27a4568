/*
 * Image files as base64 text, for embedding pictures in XML documents.
 */
#ifndef QNUTIL_ENCODING_H
#define QNUTIL_ENCODING_H

#include "common.h"

QNUTIL_EXTERN_C_BEGIN

/**
 * Renders the whole content of the file `path` (any format; it is not
 * parsed) as standard base64 text without line breaks, in two calls:
 *  - sizeOnly != 0: stores the text length, 4 * ceil(fileSize / 3), in
 *    *length; buffer is not used;
 *  - sizeOnly == 0: copies the text WITHOUT ITS LAST CHARACTER into buffer
 *    and writes no terminator; *length is not used. A caller that
 *    allocated the reported length sets the last byte to zero itself.
 * Returns 1, or 0 when the file cannot be opened or read in full, memory
 * runs out, or the text would not fit 32 bits; on failure nothing is
 * written. An empty file reports length 0 and copies nothing.
 */
QNUTIL_API int QNUTIL_CALL jpgToXML(const char* path, unsigned char* buffer, unsigned int* length,
                                    int sizeOnly);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_ENCODING_H */
