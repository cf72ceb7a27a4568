/*
 * QnUtil public C interface: include this one header (Windows hosts that
 * use GDI, GDI+ or filter plug-ins include qnutil_win32.h instead).
 * Each family has a header of its own below qnutil/.
 */
#ifndef QNUTIL_QNUTIL_H
#define QNUTIL_QNUTIL_H

#include "common.h"
#include "frame.h"
#include "calc.h"
#include "env.h"
#include "numeric.h"
#include "encoding.h"
#include "files.h"
#include "system.h"
#include "triangulate.h"
#include "raster.h"
#include "ini.h"

#endif /* QNUTIL_QNUTIL_H */
