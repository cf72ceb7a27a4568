/*
 * System facts and actions: operating-system version, the application's
 * data folders, the install location from the registry, display scaling and
 * starting another program while keeping the caller's message queue alive.
 *
 * POSIX builds: the version comes from uname (kernel release major.minor),
 * the roaming folder follows the XDG base-directory rules, programs are
 * started and waited for with posix_spawn/waitpid. There is no registry and
 * no display scaling: those exports exist and return their failure results.
 */
#ifndef QNUTIL_SYSTEM_H
#define QNUTIL_SYSTEM_H

#include "common.h"

QNUTIL_EXTERN_C_BEGIN

/**
 * Operating-system version into *major and *minor. Returns 0 if either
 * pointer is null, else 1. Windows reports what it reports to applications
 * without a compatibility manifest (6.1 on Windows 7, 6.2 on later systems);
 * POSIX reports the kernel release (e.g. 6.1 for "6.1.0-18-amd64", 0.0 when
 * it cannot be read).
 */
QNUTIL_API int QNUTIL_CALL QnUtil_GetOperatingSystem(unsigned* major, unsigned* minor);

/**
 * The host's program-data folder, built in buf (at least 260 bytes).
 * On Windows 5.0-5.2 and 6.0 buf is first overwritten with the common
 * application-data folder; on every later Windows and on POSIX buf holds the
 * base folder the caller put there. If buf contains a path separator that
 * is not its last character, one is appended; then
 * "Quarn Software GmbH\Quarn +2011\Programm" ('/' on POSIX) is appended.
 * Returns buf; NULL when buf is null, the folder query fails, or the result
 * (or the caller's text) would not fit in 260 bytes, buf then unchanged.
 */
QNUTIL_API char* QNUTIL_CALL QnUtil_GetProgPathAppData(char* buf);

/**
 * The user's roaming application-data folder into buf (at least 260 bytes;
 * nothing appended). Windows: the shell's AppData\Roaming folder. POSIX:
 * $XDG_DATA_HOME when set to an absolute path, else $HOME/.local/share.
 * Returns 1, or 0 on failure (buf null, no such folder, longer than 259).
 */
QNUTIL_API int QNUTIL_CALL QnUtil_GetProgPathRoamingAppData(char* buf);

/**
 * Reads the value "InstallLocation" of key subkey in the local-machine
 * hive. Returns 1 and copies the value's bytes (terminator included) to buf
 * when its length is between 1 and size bytes; returns 0 when the key or
 * value is missing, the value is longer than 2048 bytes or than size, or
 * subkey or buf is null. POSIX: always 0 (there is no registry).
 */
QNUTIL_API int QNUTIL_CALL GetLocalMachineRegistryEntry(const char* subkey, int size, void* buf);

/**
 * Opts the process into the DPI awareness given (the values of Windows'
 * PROCESS_DPI_AWARENESS) through Shcore.dll when the system has it; call
 * once at start-up before any window exists. Returns that call's HRESULT,
 * or 0 when the system has no such function (then scaling information stays
 * unavailable). POSIX: always 0.
 */
QNUTIL_API int QNUTIL_CALL MySetProcessDpiAwareness(int awareness);

/** 1 once MySetProcessDpiAwareness found the scaling functions, else 0. */
QNUTIL_API int QNUTIL_CALL ProcessDpiAwarenessAvailable(void);

/**
 * Virtual screen size corrected for display scaling. index 0 or 78: width,
 * 1 or 79: height; 76 and 77: the system's own metric (origin of the
 * virtual screen); -1 for any other index. Up to 2000 pixels wide the size
 * is the desktop window's; wider desktops report the device resolution,
 * multiplied by (scale factor + 10) / 100 when scaling information is
 * available and the factor exceeds 110 per cent (150 % gives 1.6).
 * POSIX: -1 for every index (no display).
 */
QNUTIL_API int QNUTIL_CALL MyGetSystemMetrics(int index);

/**
 * Starts program with one argument (both quoted: "program" "argument") and
 * waits until it ends; input arriving meanwhile is removed from the calling
 * thread's queue without being dispatched, so the caller's windows neither
 * repaint nor react. Returns 1 when the program ended and also when it
 * could not be started; 0 when waiting failed. A null argument is passed as
 * an empty one; a null program counts as a failed start.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_ExecuteProgram(const char* program, const char* argument);

/**
 * Runs the command line "program arguments" (nothing quoted; POSIX hands it
 * to /bin/sh) and waits until it ends, dispatching the calling thread's
 * messages meanwhile. Results as QnUtil_ExecuteProgram; null arguments are
 * treated as empty.
 */
QNUTIL_API int QNUTIL_CALL QnUtil_ExecuteProgramEX(const char* program, const char* arguments);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_SYSTEM_H */
