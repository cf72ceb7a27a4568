/*
 * QnUtil public C interface: include this one header.
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
#include "gdiplus.h"
#include "files.h"
#include "system.h"
#include "triangulate.h"
#include "raster.h"
#include "gdi.h"
#include "ini.h"
#include "psfilter.h"

#endif /* QNUTIL_QNUTIL_H */
