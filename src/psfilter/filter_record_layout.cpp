// Compile-time proof that the interface structures have the documented
// layout: every FilterRecord offset and the suite, pixel-map and platform
// block layouts, for 32-bit and 64-bit pointers. A lost 4-byte packing
// would move every field from abortProc on in the 64-bit build.
#include <cstddef>

#include "psfilter/filter_record.h"

namespace qnutil::psfilter {
namespace {

constexpr bool k64 = sizeof(void*) == 8;
static_assert(sizeof(void*) == 4 || sizeof(void*) == 8);

#define QNUTIL_ASSERT_OFFSET(type, field, off32, off64) \
  static_assert(offsetof(type, field) == (k64 ? (off64) : (off32)), #type "::" #field)
#define QNUTIL_ASSERT_SIZE(type, size32, size64) \
  static_assert(sizeof(type) == (k64 ? (size64) : (size32)), "sizeof " #type)

QNUTIL_ASSERT_SIZE(Point, 4, 4);
QNUTIL_ASSERT_SIZE(Rect, 8, 8);
QNUTIL_ASSERT_SIZE(VRect, 16, 16);
QNUTIL_ASSERT_SIZE(PSRGBColor, 6, 6);
QNUTIL_ASSERT_SIZE(PlugInMonitor, 40, 40);
QNUTIL_ASSERT_SIZE(PlatformData, 4, 8);

QNUTIL_ASSERT_OFFSET(FilterRecord, serialNumber, 0, 0);
QNUTIL_ASSERT_OFFSET(FilterRecord, abortProc, 4, 4);
QNUTIL_ASSERT_OFFSET(FilterRecord, progressProc, 8, 12);
QNUTIL_ASSERT_OFFSET(FilterRecord, parameters, 12, 20);
QNUTIL_ASSERT_OFFSET(FilterRecord, imageSize, 16, 28);
QNUTIL_ASSERT_OFFSET(FilterRecord, planes, 20, 32);
QNUTIL_ASSERT_OFFSET(FilterRecord, filterRect, 22, 34);
QNUTIL_ASSERT_OFFSET(FilterRecord, background, 30, 42);
QNUTIL_ASSERT_OFFSET(FilterRecord, foreground, 36, 48);
QNUTIL_ASSERT_OFFSET(FilterRecord, maxSpace, 44, 56);
QNUTIL_ASSERT_OFFSET(FilterRecord, bufferSpace, 48, 60);
QNUTIL_ASSERT_OFFSET(FilterRecord, inRect, 52, 64);
QNUTIL_ASSERT_OFFSET(FilterRecord, inLoPlane, 60, 72);
QNUTIL_ASSERT_OFFSET(FilterRecord, inHiPlane, 62, 74);
QNUTIL_ASSERT_OFFSET(FilterRecord, outRect, 64, 76);
QNUTIL_ASSERT_OFFSET(FilterRecord, outLoPlane, 72, 84);
QNUTIL_ASSERT_OFFSET(FilterRecord, outHiPlane, 74, 86);
QNUTIL_ASSERT_OFFSET(FilterRecord, inData, 76, 88);
QNUTIL_ASSERT_OFFSET(FilterRecord, inRowBytes, 80, 96);
QNUTIL_ASSERT_OFFSET(FilterRecord, outData, 84, 100);
QNUTIL_ASSERT_OFFSET(FilterRecord, outRowBytes, 88, 108);
QNUTIL_ASSERT_OFFSET(FilterRecord, isFloating, 92, 112);
QNUTIL_ASSERT_OFFSET(FilterRecord, haveMask, 93, 113);
QNUTIL_ASSERT_OFFSET(FilterRecord, autoMask, 94, 114);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskRect, 96, 116);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskData, 104, 124);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskRowBytes, 108, 132);
QNUTIL_ASSERT_OFFSET(FilterRecord, backColor, 112, 136);
QNUTIL_ASSERT_OFFSET(FilterRecord, foreColor, 116, 140);
QNUTIL_ASSERT_OFFSET(FilterRecord, hostSig, 120, 144);
QNUTIL_ASSERT_OFFSET(FilterRecord, hostProc, 124, 148);
QNUTIL_ASSERT_OFFSET(FilterRecord, imageMode, 128, 156);
QNUTIL_ASSERT_OFFSET(FilterRecord, imageHRes, 132, 160);
QNUTIL_ASSERT_OFFSET(FilterRecord, imageVRes, 136, 164);
QNUTIL_ASSERT_OFFSET(FilterRecord, floatCoord, 140, 168);
QNUTIL_ASSERT_OFFSET(FilterRecord, wholeSize, 144, 172);
QNUTIL_ASSERT_OFFSET(FilterRecord, monitor, 148, 176);
QNUTIL_ASSERT_OFFSET(FilterRecord, platformData, 188, 216);
QNUTIL_ASSERT_OFFSET(FilterRecord, bufferProcs, 192, 224);
QNUTIL_ASSERT_OFFSET(FilterRecord, resourceProcs, 196, 232);
QNUTIL_ASSERT_OFFSET(FilterRecord, processEvent, 200, 240);
QNUTIL_ASSERT_OFFSET(FilterRecord, displayPixels, 204, 248);
QNUTIL_ASSERT_OFFSET(FilterRecord, handleProcs, 208, 256);
QNUTIL_ASSERT_OFFSET(FilterRecord, supportsDummyChannels, 212, 264);
QNUTIL_ASSERT_OFFSET(FilterRecord, supportsAlternateLayouts, 213, 265);
QNUTIL_ASSERT_OFFSET(FilterRecord, wantLayout, 214, 266);
QNUTIL_ASSERT_OFFSET(FilterRecord, filterCase, 216, 268);
QNUTIL_ASSERT_OFFSET(FilterRecord, dummyPlaneValue, 218, 270);
QNUTIL_ASSERT_OFFSET(FilterRecord, premiereHook, 220, 272);
QNUTIL_ASSERT_OFFSET(FilterRecord, advanceState, 224, 280);
QNUTIL_ASSERT_OFFSET(FilterRecord, supportsAbsolute, 228, 288);
QNUTIL_ASSERT_OFFSET(FilterRecord, wantsAbsolute, 229, 289);
QNUTIL_ASSERT_OFFSET(FilterRecord, getPropertyObsolete, 232, 292);
QNUTIL_ASSERT_OFFSET(FilterRecord, cannotUndo, 236, 300);
QNUTIL_ASSERT_OFFSET(FilterRecord, supportsPadding, 237, 301);
QNUTIL_ASSERT_OFFSET(FilterRecord, inputPadding, 238, 302);
QNUTIL_ASSERT_OFFSET(FilterRecord, outputPadding, 240, 304);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskPadding, 242, 306);
QNUTIL_ASSERT_OFFSET(FilterRecord, samplingSupport, 244, 308);
QNUTIL_ASSERT_OFFSET(FilterRecord, reservedByte, 245, 309);
QNUTIL_ASSERT_OFFSET(FilterRecord, inputRate, 248, 312);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskRate, 252, 316);
QNUTIL_ASSERT_OFFSET(FilterRecord, colorServices, 256, 320);
QNUTIL_ASSERT_OFFSET(FilterRecord, inLayerPlanes, 260, 328);
QNUTIL_ASSERT_OFFSET(FilterRecord, inTransparencyMask, 262, 330);
QNUTIL_ASSERT_OFFSET(FilterRecord, inLayerMasks, 264, 332);
QNUTIL_ASSERT_OFFSET(FilterRecord, inInvertedLayerMasks, 266, 334);
QNUTIL_ASSERT_OFFSET(FilterRecord, inNonLayerPlanes, 268, 336);
QNUTIL_ASSERT_OFFSET(FilterRecord, outLayerPlanes, 270, 338);
QNUTIL_ASSERT_OFFSET(FilterRecord, outTransparencyMask, 272, 340);
QNUTIL_ASSERT_OFFSET(FilterRecord, outLayerMasks, 274, 342);
QNUTIL_ASSERT_OFFSET(FilterRecord, outInvertedLayerMasks, 276, 344);
QNUTIL_ASSERT_OFFSET(FilterRecord, outNonLayerPlanes, 278, 346);
QNUTIL_ASSERT_OFFSET(FilterRecord, absLayerPlanes, 280, 348);
QNUTIL_ASSERT_OFFSET(FilterRecord, absTransparencyMask, 282, 350);
QNUTIL_ASSERT_OFFSET(FilterRecord, absLayerMasks, 284, 352);
QNUTIL_ASSERT_OFFSET(FilterRecord, absInvertedLayerMasks, 286, 354);
QNUTIL_ASSERT_OFFSET(FilterRecord, absNonLayerPlanes, 288, 356);
QNUTIL_ASSERT_OFFSET(FilterRecord, inPreDummyPlanes, 290, 358);
QNUTIL_ASSERT_OFFSET(FilterRecord, inPostDummyPlanes, 292, 360);
QNUTIL_ASSERT_OFFSET(FilterRecord, outPreDummyPlanes, 294, 362);
QNUTIL_ASSERT_OFFSET(FilterRecord, outPostDummyPlanes, 296, 364);
QNUTIL_ASSERT_OFFSET(FilterRecord, inColumnBytes, 300, 368);
QNUTIL_ASSERT_OFFSET(FilterRecord, inPlaneBytes, 304, 372);
QNUTIL_ASSERT_OFFSET(FilterRecord, outColumnBytes, 308, 376);
QNUTIL_ASSERT_OFFSET(FilterRecord, outPlaneBytes, 312, 380);
QNUTIL_ASSERT_OFFSET(FilterRecord, imageServicesProcs, 316, 384);
QNUTIL_ASSERT_OFFSET(FilterRecord, propertyProcs, 320, 392);
QNUTIL_ASSERT_OFFSET(FilterRecord, inTileHeight, 324, 400);
QNUTIL_ASSERT_OFFSET(FilterRecord, inTileWidth, 326, 402);
QNUTIL_ASSERT_OFFSET(FilterRecord, inTileOrigin, 328, 404);
QNUTIL_ASSERT_OFFSET(FilterRecord, absTileHeight, 332, 408);
QNUTIL_ASSERT_OFFSET(FilterRecord, absTileWidth, 334, 410);
QNUTIL_ASSERT_OFFSET(FilterRecord, absTileOrigin, 336, 412);
QNUTIL_ASSERT_OFFSET(FilterRecord, outTileHeight, 340, 416);
QNUTIL_ASSERT_OFFSET(FilterRecord, outTileWidth, 342, 418);
QNUTIL_ASSERT_OFFSET(FilterRecord, outTileOrigin, 344, 420);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskTileHeight, 348, 424);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskTileWidth, 350, 426);
QNUTIL_ASSERT_OFFSET(FilterRecord, maskTileOrigin, 352, 428);
QNUTIL_ASSERT_OFFSET(FilterRecord, descriptorParameters, 356, 432);
QNUTIL_ASSERT_OFFSET(FilterRecord, errorString, 360, 440);
QNUTIL_ASSERT_OFFSET(FilterRecord, channelPortProcs, 364, 448);
QNUTIL_ASSERT_OFFSET(FilterRecord, documentInfo, 368, 456);
QNUTIL_ASSERT_OFFSET(FilterRecord, sSPBasic, 372, 464);
QNUTIL_ASSERT_OFFSET(FilterRecord, plugInRef, 376, 472);
QNUTIL_ASSERT_OFFSET(FilterRecord, depth, 380, 480);
QNUTIL_ASSERT_OFFSET(FilterRecord, iCCprofileData, 384, 484);
QNUTIL_ASSERT_OFFSET(FilterRecord, iCCprofileSize, 388, 492);
QNUTIL_ASSERT_OFFSET(FilterRecord, canUseICCProfiles, 392, 496);
QNUTIL_ASSERT_OFFSET(FilterRecord, hasImageScrap, 396, 500);
QNUTIL_ASSERT_OFFSET(FilterRecord, bigDocumentData, 400, 504);
QNUTIL_ASSERT_OFFSET(FilterRecord, input3DScene, 404, 512);
QNUTIL_ASSERT_OFFSET(FilterRecord, output3DScene, 408, 520);
QNUTIL_ASSERT_OFFSET(FilterRecord, createNewLayer, 412, 528);
QNUTIL_ASSERT_OFFSET(FilterRecord, iCCWorkingProfileData, 416, 532);
QNUTIL_ASSERT_OFFSET(FilterRecord, iCCWorkingProfileSize, 420, 540);
QNUTIL_ASSERT_OFFSET(FilterRecord, bufferSpace64, 424, 544);
QNUTIL_ASSERT_OFFSET(FilterRecord, maxSpace64, 432, 552);
QNUTIL_ASSERT_OFFSET(FilterRecord, allowOverrangeColors, 440, 560);
QNUTIL_ASSERT_OFFSET(FilterRecord, reserved, 441, 561);
QNUTIL_ASSERT_SIZE(FilterRecord, 488, 608);

// The suites: a 16-bit version and count, then one procedure pointer per
// pointer-sized slot.
#define QNUTIL_ASSERT_SLOT(type, field, slot) \
  static_assert(offsetof(type, field) == (slot) * sizeof(void*), #type "::" #field)
#define QNUTIL_ASSERT_SLOTS(type, slots) \
  static_assert(sizeof(type) == (slots) * sizeof(void*), "sizeof " #type)

QNUTIL_ASSERT_SLOT(BufferProcs, allocateProc, 1);
QNUTIL_ASSERT_SLOT(BufferProcs, lockProc, 2);
QNUTIL_ASSERT_SLOT(BufferProcs, unlockProc, 3);
QNUTIL_ASSERT_SLOT(BufferProcs, freeProc, 4);
QNUTIL_ASSERT_SLOT(BufferProcs, spaceProc, 5);
QNUTIL_ASSERT_SLOTS(BufferProcs, 6);

QNUTIL_ASSERT_SLOT(HandleProcs, newProc, 1);
QNUTIL_ASSERT_SLOT(HandleProcs, disposeProc, 2);
QNUTIL_ASSERT_SLOT(HandleProcs, getSizeProc, 3);
QNUTIL_ASSERT_SLOT(HandleProcs, setSizeProc, 4);
QNUTIL_ASSERT_SLOT(HandleProcs, lockProc, 5);
QNUTIL_ASSERT_SLOT(HandleProcs, unlockProc, 6);
QNUTIL_ASSERT_SLOT(HandleProcs, recoverSpaceProc, 7);
QNUTIL_ASSERT_SLOT(HandleProcs, disposeRegularHandleProc, 8);
QNUTIL_ASSERT_SLOTS(HandleProcs, 9);

QNUTIL_ASSERT_OFFSET(PSPixelMap, bounds, 4, 4);
QNUTIL_ASSERT_OFFSET(PSPixelMap, imageMode, 20, 20);
QNUTIL_ASSERT_OFFSET(PSPixelMap, rowBytes, 24, 24);
QNUTIL_ASSERT_OFFSET(PSPixelMap, colBytes, 28, 28);
QNUTIL_ASSERT_OFFSET(PSPixelMap, planeBytes, 32, 32);
QNUTIL_ASSERT_OFFSET(PSPixelMap, baseAddr, 36, 40);
QNUTIL_ASSERT_OFFSET(PSPixelMap, mat, 40, 48);
QNUTIL_ASSERT_OFFSET(PSPixelMap, masks, 44, 56);
QNUTIL_ASSERT_OFFSET(PSPixelMap, maskPhaseRow, 48, 64);
QNUTIL_ASSERT_OFFSET(PSPixelMap, maskPhaseCol, 52, 68);
QNUTIL_ASSERT_OFFSET(PSPixelMap, pixelOverlays, 56, 72);
QNUTIL_ASSERT_OFFSET(PSPixelMap, colorManagementOptions, 60, 80);
QNUTIL_ASSERT_OFFSET(PSPixelMap, depth, 64, 84);
QNUTIL_ASSERT_SIZE(PSPixelMap, 68, 88);

#undef QNUTIL_ASSERT_OFFSET
#undef QNUTIL_ASSERT_SIZE
#undef QNUTIL_ASSERT_SLOT
#undef QNUTIL_ASSERT_SLOTS

}  // namespace
}  // namespace qnutil::psfilter
