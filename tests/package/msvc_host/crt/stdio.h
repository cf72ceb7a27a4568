/* What the host test uses of the Microsoft C run-time's <stdio.h>, whose
 * headers are not installed here; the functions come from msvcrt.dll. */
#ifndef MSVC_HOST_STDIO_H
#define MSVC_HOST_STDIO_H
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct _iobuf FILE;
int __cdecl printf(const char* format, ...);
FILE* __cdecl fopen(const char* path, const char* mode);
size_t __cdecl fread(void* buffer, size_t size, size_t count, FILE* file);
size_t __cdecl fwrite(const void* buffer, size_t size, size_t count, FILE* file);
int __cdecl fclose(FILE* file);
int __cdecl fflush(FILE* file);
#ifdef __cplusplus
}
#endif
#endif
