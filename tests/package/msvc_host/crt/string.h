/* What the host test uses of the Microsoft C run-time's <string.h>. */
#ifndef MSVC_HOST_STRING_H
#define MSVC_HOST_STRING_H
#include <stddef.h>
#ifdef __cplusplus
extern "C" {
#endif
void* __cdecl memcpy(void* to, const void* from, size_t count);
void* __cdecl memset(void* to, int value, size_t count);
char* __cdecl strstr(const char* text, const char* part);
int __cdecl strcmp(const char* a, const char* b);
size_t __cdecl strlen(const char* text);
#ifdef __cplusplus
}
#endif
#endif
