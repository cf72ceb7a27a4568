// The records' layout is part of the exported interface: the host reads
// and writes them by pointer, so every target must agree byte for byte.
#include <cstddef>

#include "qnutil/ini.h"

static_assert(sizeof(FillStyleRec) == 15);
static_assert(offsetof(FillStyleRec, style) == 0);
static_assert(offsetof(FillStyleRec, param) == 1);
static_assert(offsetof(FillStyleRec, color) == 5);
static_assert(offsetof(FillStyleRec, param2) == 9);
static_assert(offsetof(FillStyleRec, color2) == 10);
static_assert(offsetof(FillStyleRec, param3) == 14);

static_assert(sizeof(QnUtilGuid) == 16);
static_assert(sizeof(FillStyleExRec) == 31);
static_assert(offsetof(FillStyleExRec, fill) == 0);
static_assert(offsetof(FillStyleExRec, guid) == 15);

static_assert(sizeof(PenStyleRec) == 12);
static_assert(offsetof(PenStyleRec, style) == 0);
static_assert(offsetof(PenStyleRec, width) == 4);
static_assert(offsetof(PenStyleRec, color) == 8);

static_assert(sizeof(TexPropsRec) == 52);
static_assert(offsetof(TexPropsRec, enabled) == 0);
static_assert(offsetof(TexPropsRec, values) == 4);
static_assert(offsetof(TexPropsRec, flag2) == 36);
static_assert(offsetof(TexPropsRec, flag3) == 40);
static_assert(offsetof(TexPropsRec, value9) == 44);
static_assert(offsetof(TexPropsRec, value10) == 48);

static_assert(sizeof(matTyp) == 64);
static_assert(offsetof(matTyp, RGBDiffus) == 0);
static_assert(offsetof(matTyp, RGBSpiegel) == 12);
static_assert(offsetof(matTyp, alpha) == 24);
static_assert(offsetof(matTyp, kambient) == 28);
static_assert(offsetof(matTyp, kdiffus) == 32);
static_assert(offsetof(matTyp, kspiegel) == 36);
static_assert(offsetof(matTyp, Oe) == 40);
static_assert(offsetof(matTyp, oeInvPow) == 44);
static_assert(offsetof(matTyp, oeOffset) == 48);
static_assert(offsetof(matTyp, oePow) == 52);
static_assert(offsetof(matTyp, reserved) == 56);
static_assert(offsetof(matTyp, Bits) == 60);
