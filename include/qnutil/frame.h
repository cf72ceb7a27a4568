/*
 * Message and log facility.
 *
 * Internal faults of the library and messages of the host are shown to the
 * user in a modal message box or, when logging is switched on, appended as
 * one time-stamped line to a log file. Hosts and tests can route message
 * boxes elsewhere with QnUtil_SetMessageHandler.
 */
#ifndef QNUTIL_FRAME_H
#define QNUTIL_FRAME_H

#include "common.h"

QNUTIL_EXTERN_C_BEGIN

/**
 * Reports a message. The box caption is "MESSAGE in \"<sourceFile>\" line
 * <line>:" when sourceFile is non-null, else "MESSAGE"; the text is text,
 * extra1 and extra2 concatenated (null ones skipped).
 * With logging on and a log file open, the line
 * "<Month dd, yyyy, hh:mm> :: <text> in \"<sourceFile>\" line <line>\n"
 * is appended and flushed instead, and no box is shown.
 */
QNUTIL_API void QNUTIL_CALL QnUtil_Message(const char* text, const char* extra1, const char* extra2,
                                           const char* sourceFile, int line);

/**
 * Switches logging. enable = 0 closes the log file. Otherwise, if no log
 * file is open and fileName is non-null, opens fileName (appending when
 * append != 0, else truncating; every flush reaches the disk). If it cannot
 * be opened, "<fileName>_1" … "<fileName>_20" are tried and a notice box
 * names the file used; if none opens, logging is switched off again with a
 * notice box.
 */
QNUTIL_API void QNUTIL_CALL QnUtil_SetWriteToLogfile(int enable, const char* fileName, int append);

/** 1 if logging is switched on, else 0. */
QNUTIL_API int QNUTIL_CALL QnUtil_GetWriteToLogfile(void);

/**
 * Receives what would be shown in a message box: its caption ("" for a
 * box without one) and its text, plus the user pointer given at
 * installation. Called on the reporting thread.
 */
typedef void(QNUTIL_CALL* QnUtilMessageHandler)(const char* caption, const char* text, void* user);

/**
 * Installs a handler for message boxes; null restores the default (a modal
 * box owned by the focus window on Windows, one line on stderr on POSIX).
 */
QNUTIL_API void QNUTIL_CALL QnUtil_SetMessageHandler(QnUtilMessageHandler handler, void* user);

QNUTIL_EXTERN_C_END

#endif /* QNUTIL_FRAME_H */
