// The Win32 functions the host test calls, declared by hand: Microsoft's
// headers are not installed here.
#pragma once

#include <stddef.h>

extern "C" {
typedef unsigned long DWORD;

struct ProcessHeapEntry {  // PROCESS_HEAP_ENTRY
  void* lpData;
  DWORD cbData;
  unsigned char cbOverhead;
  unsigned char iRegionIndex;
  unsigned short wFlags;
  void* hMem;
  DWORD dwReserved[3];
};
constexpr unsigned short kProcessHeapEntryBusy = 0x0004;

__declspec(dllimport) int __stdcall CreateDirectoryA(const char* path, void* security);
__declspec(dllimport) void __stdcall ExitProcess(unsigned code);
__declspec(dllimport) void* __stdcall GetProcessHeap(void);
__declspec(dllimport) void* __stdcall HeapAlloc(void* heap, DWORD flags, size_t bytes);
__declspec(dllimport) int __stdcall HeapFree(void* heap, DWORD flags, void* block);
__declspec(dllimport) int __stdcall HeapWalk(void* heap, ProcessHeapEntry* entry);

struct BitmapInfoHeader {  // BITMAPINFOHEADER
  DWORD biSize;
  long biWidth, biHeight;
  unsigned short biPlanes, biBitCount;
  DWORD biCompression, biSizeImage;
  long biXPelsPerMeter, biYPelsPerMeter;
  DWORD biClrUsed, biClrImportant;
};
__declspec(dllimport) HDC__* __stdcall CreateCompatibleDC(HDC__* dc);
__declspec(dllimport) void* __stdcall CreateDIBSection(HDC__* dc, const BitmapInfoHeader* info,
                                                       unsigned usage, void** bits, void* section,
                                                       DWORD offset);
__declspec(dllimport) int __stdcall DeleteDC(HDC__* dc);
__declspec(dllimport) int __stdcall DeleteObject(void* object);
__declspec(dllimport) int __stdcall GdiFlush(void);
__declspec(dllimport) void* __stdcall SelectObject(HDC__* dc, void* object);
}
