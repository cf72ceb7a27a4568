// The published Photoshop filter plug-in interface as this host and its test
// plug-ins see it: the parameter block (FilterRecord), the callback suites,
// pixel maps, selectors and error codes. Declared from the interface's
// documented layouts; filter_record_layout.cpp checks every offset.
//
// Callbacks use the compiler's default calling convention (cdecl on 32-bit
// Windows), as the interface specifies.
#pragma once

#include <cstdint>

namespace qnutil::psfilter {

using Boolean = std::uint8_t;
using OSErr = std::int16_t;
using OSType = std::uint32_t;
using Fixed = std::int32_t;  // 16.16
using Ptr = char*;
using Handle = char**;
using BufferID = struct PSBuffer*;

struct Point {
  std::int16_t v;
  std::int16_t h;
};

struct Rect {
  std::int16_t top;
  std::int16_t left;
  std::int16_t bottom;
  std::int16_t right;
};

// A rectangle covers pixels when left < right and top < bottom.
inline bool non_empty(const Rect& rect) { return rect.left < rect.right && rect.top < rect.bottom; }

struct VRect {
  std::int32_t top;
  std::int32_t left;
  std::int32_t bottom;
  std::int32_t right;
};

struct PSRGBColor {
  std::uint16_t red;
  std::uint16_t green;
  std::uint16_t blue;
};

struct PlugInMonitor {
  Fixed gamma, redX, redY, greenX, greenY, blueX, blueY, whiteX, whiteY, ambient;
};

struct PlatformData {
  std::intptr_t hwnd;  // window that owns the plug-in's dialogs
};

// Selectors of the entry point.
enum FilterSelector : std::int16_t {
  filterSelectorAbout = 0,
  filterSelectorParameters = 1,
  filterSelectorPrepare = 2,
  filterSelectorStart = 3,
  filterSelectorContinue = 4,
  filterSelectorFinish = 5,
};

// Image modes.
inline constexpr std::int16_t plugInModeGrayScale = 1;
inline constexpr std::int16_t plugInModeRGBColor = 3;

// Error codes.
inline constexpr OSErr noErr = 0;
inline constexpr OSErr memFullErr = -108;
inline constexpr OSErr nilHandleErr = -109;
inline constexpr OSErr userCanceledErr = -128;
inline constexpr OSErr filterBadParameters = -30100;

// Buffer suite.
using AllocateBufferProc = OSErr (*)(std::int32_t size, BufferID* bufferID);
using LockBufferProc = Ptr (*)(BufferID bufferID, Boolean moveHigh);
using UnlockBufferProc = void (*)(BufferID bufferID);
using FreeBufferProc = void (*)(BufferID bufferID);
using BufferSpaceProc = std::int32_t (*)();

inline constexpr std::int16_t kBufferProcsVersion = 2;
inline constexpr std::int16_t kBufferProcsCount = 5;

struct BufferProcs {
  std::int16_t bufferProcsVersion;
  std::int16_t numBufferProcs;
  AllocateBufferProc allocateProc;
  LockBufferProc lockProc;
  UnlockBufferProc unlockProc;
  FreeBufferProc freeProc;
  BufferSpaceProc spaceProc;
};

// Handle suite.
using NewPIHandleProc = Handle (*)(std::int32_t size);
using DisposePIHandleProc = void (*)(Handle handle);
using GetPIHandleSizeProc = std::int32_t (*)(Handle handle);
using SetPIHandleSizeProc = OSErr (*)(Handle handle, std::int32_t newSize);
using LockPIHandleProc = Ptr (*)(Handle handle, Boolean moveHigh);
using UnlockPIHandleProc = void (*)(Handle handle);
using RecoverSpaceProc = void (*)(std::int32_t size);
using DisposeRegularHandleProc = void (*)(Handle handle);

inline constexpr std::int16_t kHandleProcsVersion = 1;
inline constexpr std::int16_t kHandleProcsCount = 8;

struct HandleProcs {
  std::int16_t handleProcsVersion;
  std::int16_t numHandleProcs;
  NewPIHandleProc newProc;
  DisposePIHandleProc disposeProc;
  GetPIHandleSizeProc getSizeProc;
  SetPIHandleSizeProc setSizeProc;
  LockPIHandleProc lockProc;
  UnlockPIHandleProc unlockProc;
  RecoverSpaceProc recoverSpaceProc;
  DisposeRegularHandleProc disposeRegularHandleProc;
};

struct PSPixelMask;

// Pixels a plug-in asks the host to draw (displayPixels).
struct PSPixelMap {
  std::int32_t version;
  VRect bounds;
  std::int32_t imageMode;
  std::int32_t rowBytes;
  std::int32_t colBytes;
  std::int32_t planeBytes;
  void* baseAddr;
  PSPixelMask* mat;
  PSPixelMask* masks;
  std::int32_t maskPhaseRow;
  std::int32_t maskPhaseCol;
  void* pixelOverlays;
  std::uint32_t colorManagementOptions;
  std::int16_t depth;
};

using TestAbortProc = Boolean (*)();
using ProgressProc = void (*)(std::int32_t done, std::int32_t total);
using HostProc = void (*)(std::int16_t selector, std::intptr_t* data);
using ProcessEventProc = void (*)(void* event);
using DisplayPixelsProc = OSErr (*)(const PSPixelMap* source, const VRect* srcRect,
                                    std::int32_t dstRow, std::int32_t dstCol,
                                    void* platformContext);
using AdvanceStateProc = OSErr (*)();

// The parameter block handed to every selector. Laid out with 4-byte packing
// on both Windows targets: 8-byte pointers of the 64-bit build are only
// 4-byte aligned. Fields this host never fills are opaque pointers or plain
// integers of the documented width; the tail up to the newest documented
// size stays reserved, so plug-ins reading newer fields see zeros.
#pragma pack(push, 4)
struct FilterRecord {
  std::int32_t serialNumber;
  TestAbortProc abortProc;
  ProgressProc progressProc;
  Handle parameters;
  Point imageSize;
  std::int16_t planes;
  Rect filterRect;
  PSRGBColor background;
  PSRGBColor foreground;
  std::int32_t maxSpace;
  std::int32_t bufferSpace;
  Rect inRect;
  std::int16_t inLoPlane;
  std::int16_t inHiPlane;
  Rect outRect;
  std::int16_t outLoPlane;
  std::int16_t outHiPlane;
  void* inData;
  std::int32_t inRowBytes;
  void* outData;
  std::int32_t outRowBytes;
  Boolean isFloating;
  Boolean haveMask;
  Boolean autoMask;
  Rect maskRect;
  void* maskData;
  std::int32_t maskRowBytes;
  std::uint8_t backColor[4];
  std::uint8_t foreColor[4];
  OSType hostSig;
  HostProc hostProc;
  std::int16_t imageMode;
  Fixed imageHRes;
  Fixed imageVRes;
  Point floatCoord;
  Point wholeSize;
  PlugInMonitor monitor;
  void* platformData;
  BufferProcs* bufferProcs;
  void* resourceProcs;
  ProcessEventProc processEvent;
  DisplayPixelsProc displayPixels;
  HandleProcs* handleProcs;
  Boolean supportsDummyChannels;
  Boolean supportsAlternateLayouts;
  std::int16_t wantLayout;
  std::int16_t filterCase;
  std::int16_t dummyPlaneValue;
  void* premiereHook;
  AdvanceStateProc advanceState;
  Boolean supportsAbsolute;
  Boolean wantsAbsolute;
  void* getPropertyObsolete;
  Boolean cannotUndo;
  Boolean supportsPadding;
  std::int16_t inputPadding;
  std::int16_t outputPadding;
  std::int16_t maskPadding;
  char samplingSupport;
  char reservedByte;
  Fixed inputRate;
  Fixed maskRate;
  void* colorServices;
  std::int16_t inLayerPlanes;
  std::int16_t inTransparencyMask;
  std::int16_t inLayerMasks;
  std::int16_t inInvertedLayerMasks;
  std::int16_t inNonLayerPlanes;
  std::int16_t outLayerPlanes;
  std::int16_t outTransparencyMask;
  std::int16_t outLayerMasks;
  std::int16_t outInvertedLayerMasks;
  std::int16_t outNonLayerPlanes;
  std::int16_t absLayerPlanes;
  std::int16_t absTransparencyMask;
  std::int16_t absLayerMasks;
  std::int16_t absInvertedLayerMasks;
  std::int16_t absNonLayerPlanes;
  std::int16_t inPreDummyPlanes;
  std::int16_t inPostDummyPlanes;
  std::int16_t outPreDummyPlanes;
  std::int16_t outPostDummyPlanes;
  std::int32_t inColumnBytes;
  std::int32_t inPlaneBytes;
  std::int32_t outColumnBytes;
  std::int32_t outPlaneBytes;
  void* imageServicesProcs;
  void* propertyProcs;
  std::int16_t inTileHeight;
  std::int16_t inTileWidth;
  Point inTileOrigin;
  std::int16_t absTileHeight;
  std::int16_t absTileWidth;
  Point absTileOrigin;
  std::int16_t outTileHeight;
  std::int16_t outTileWidth;
  Point outTileOrigin;
  std::int16_t maskTileHeight;
  std::int16_t maskTileWidth;
  Point maskTileOrigin;
  void* descriptorParameters;
  void* errorString;
  void* channelPortProcs;
  void* documentInfo;
  void* sSPBasic;
  void* plugInRef;
  std::int32_t depth;
  Handle iCCprofileData;
  std::int32_t iCCprofileSize;
  std::int32_t canUseICCProfiles;
  std::int32_t hasImageScrap;
  void* bigDocumentData;
  void* input3DScene;
  void* output3DScene;
  Boolean createNewLayer;
  Handle iCCWorkingProfileData;
  std::int32_t iCCWorkingProfileSize;
  std::int64_t bufferSpace64;
  std::int64_t maxSpace64;
  Boolean allowOverrangeColors;
  char reserved[45];
};
#pragma pack(pop)

// The plug-in's entry point: selector, parameter block, the plug-in's own
// data slot (kept by the host between calls) and the result.
using PluginEntry = void (*)(std::int16_t selector, FilterRecord* record, std::intptr_t* data,
                             std::int16_t* result);

}  // namespace qnutil::psfilter
