/*
 * QnUtil public C interface with the Windows-only families: everything of
 * qnutil.h plus GDI bitmap helpers, GDI+ imaging and drawing, and the
 * filter plug-in host. On other platforms those headers declare nothing.
 */
#ifndef QNUTIL_QNUTIL_WIN32_H
#define QNUTIL_QNUTIL_WIN32_H

#include "qnutil.h"
#include "gdi_win32.h"
#include "gdiplus_win32.h"
#include "psfilter_win32.h"

#endif /* QNUTIL_QNUTIL_WIN32_H */
