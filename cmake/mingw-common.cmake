# Shared by both MinGW toolchain files; expects QNUTIL_MINGW_TRIPLE.
set(CMAKE_C_COMPILER ${QNUTIL_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QNUTIL_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${QNUTIL_MINGW_TRIPLE}-windres)
set(CMAKE_OBJDUMP ${QNUTIL_MINGW_TRIPLE}-objdump)
set(CMAKE_FIND_ROOT_PATH /usr/${QNUTIL_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Everything links statically against the compiler runtimes so that the DLL,
# the tool and the test programs import only system DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
# Test programs of both widths run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine-run.sh)
