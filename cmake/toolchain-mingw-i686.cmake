# Windows i686 (the drop-in QnUtil.dll) with Debian's MinGW-w64 posix-thread
# compilers; tests run under 32-bit Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(QNUTIL_MINGW_TRIPLE i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
