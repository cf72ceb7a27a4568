// CQnBitmap: the raster engine's in-memory image.
//
// Whatever an image comes from, it is converted at once to the working
// format: 32 bits per pixel, each pixel the little-endian word 0x00RRGGBB
// (bytes blue, green, red, fourth), rows bottom-up. Every operation of the
// engine works on that format; files get 24 bits per pixel on the way out.
//
// The object keeps a complete BMP header in file order (14-byte file header
// directly followed by the 40-byte info header), so that the 54 bytes can be
// written to a file as they stand and the info header can be handed to GDI
// as a BITMAPINFO without translation.
//
// Coordinates of Crop, DrawBitmap and CopyRect count from the top-left
// corner of the picture; buffer row r holds picture row height - 1 - r.
// Every operation that needs pixels returns at once when the object is
// empty (null pixel buffer).
#pragma once

#include <cstddef>
#include <cstdint>

#include "qnutil/raster.h"
#include "raster/pixel_layout.h"

#ifdef _WIN32
// Device handles without <windows.h>: the STRICT handle types are pointers
// to these structs.
struct HBITMAP__;
struct HDC__;
#endif

class CQnBitmap {
 public:
  static constexpr uint16_t kBmpSignature = 0x4D42;  // "BM"
  static constexpr uint32_t kHeaderBytes = 54;       // file header + info header
  static constexpr int kPaletteEntries = 256;
  static constexpr int kColourRampEntries = 256;
  static constexpr int kNoiseTableValues = 192 * 192 * 64;

  CQnBitmap();
  virtual ~CQnBitmap();
  CQnBitmap(const CQnBitmap&) = delete;
  CQnBitmap& operator=(const CQnBitmap&) = delete;

  // --- object, pixel buffer ---------------------------------------------
  // Replaces the image by an uninitialised 32-bit image (negative sizes are
  // taken as 0); returns the new bfSize. A zero-area or impossibly large
  // image leaves the object empty.
  int Create(int width, int height);
  // Deep copy of headers, pixels, palette and interpolation mode; nothing
  // when the source is null or empty.
  void Copy(const CQnBitmap* source);
  void Fill(uint32_t colour);

  // --- loaders (each first empties the object once the source is there) --
  void Load(const char* path);
  // BMP file image in memory. Without a length the header is trusted; with
  // one, bytes beyond it read as zero.
  void LoadFromBits(const void* bits);
  void LoadFromBits(const void* bits, std::size_t length);
  // hasFileHeader == 0: packed DIB starting with the info header.
  void LoadFromBits2(const void* bits, int hasFileHeader);
  void LoadFromBits2(const void* bits, int hasFileHeader, std::size_t length);
  void LoadFromBits3(QnBmpFileHeader fileHeader, QnBmpInfoHeader infoHeader, const void* data);
  void LoadFromBits3(QnBmpFileHeader fileHeader, QnBmpInfoHeader infoHeader, const void* data,
                     std::size_t length);

  // --- savers (24-bit BMP; the image is back in the working format after,
  // with the fourth byte of every pixel cleared) ---------------------------
  void SaveToFile(const char* path);
  // The caller's buffer must hold SavedMemorySize() bytes.
  void SaveToMemory(void* destination);
  // Writes nothing and returns false when capacity is too small.
  bool SaveToMemory(void* destination, std::size_t capacity);
  std::size_t SavedMemorySize() const;
  // Appends to an existing file; a missing file is not created (nothing is
  // written and the image stays as it was).
  void SaveAtEnd(const char* path);

  // --- depth conversions and mirrors -------------------------------------
  void ConvertTo32Bit();
  void ConvertTo24Bit();
  void FlipVertical();
  void FlipHorizontal();
  void Crop(int x, int y, int width, int height);

  // --- pixel effects (working format only) -------------------------------
  void Threshold(int level);
  void Blur();
  void Brightness(int delta);
  void Contrast(int level);
  void Tint(uint32_t colour);
  void ToHSI();
  void FromHSI();
  void InitColourRamp();
  void InitNoiseTable();
  void InitDoubleMap();

  // --- compositing -------------------------------------------------------
  // Scaled copy of a source rectangle into a destination rectangle (both
  // inclusive extents), mixed by opacity in per cent; the variant is chosen
  // by this image's interpolation mode.
  void DrawBitmap(int x, int y, int width, int height, const CQnBitmap* source, int sourceX,
                  int sourceY, int sourceWidth, int sourceHeight, int opacity);
  void CopyRect(int x, int y, int width, int height, const CQnBitmap* source, int sourceX,
                int sourceY);

#ifdef _WIN32
  // --- device bitmaps and device output (Windows only) --------------------
  void LoadFromHBitmap(HBITMAP__* bitmap);
  void SaveToHBitmap(HBITMAP__** bitmap);
  void Draw(HDC__* dc);
  void DrawAt(HDC__* dc, int x, int y);
  void StretchDraw(HDC__* dc, int x, int y, int width, int height);
#endif

  // Where a loader's palette and pixel bytes come from (bmp_load.cpp).
  struct PixelSource;

  // --- read access -------------------------------------------------------
  bool IsEmpty() const { return pixels_ == nullptr; }
  int Width() const { return headers_.info.biWidth; }
  int Height() const { return headers_.info.biHeight; }
  int BitCount() const { return headers_.info.biBitCount; }
  uint32_t Stride() const { return stride_; }
  uint32_t BytesPerPixel() const { return bytes_per_pixel_; }
  uint32_t BufferSize() const { return buffer_size_; }
  uint8_t* Pixels() { return pixels_; }
  const uint8_t* Pixels() const { return pixels_; }
  // Pixel word at column x of buffer row y (working format).
  uint32_t PixelAt(int x, int bufferRow) const;
  const QnBmpFileHeader& FileHeader() const { return headers_.file; }
  const QnBmpInfoHeader& InfoHeader() const { return headers_.info; }
  uint32_t PaletteCount() const { return palette_count_; }
  const uint8_t* Palette() const { return palette_; }  // blue, green, red, reserved
  int InterpolationMode() const { return interpolation_mode_; }
  // 0 nearest, 1 bilinear, 2 smoothing; other values make the scaled
  // operations do nothing.
  void SetInterpolationMode(int mode) { interpolation_mode_ = mode; }
  int ColourSpace() const { return colour_space_; }           // 0 RGB, 1 packed HSI
  const uint8_t* ColourRamp() const { return colour_ramp_; }  // blue, green, red, 0
  // The state of the animated effects (the host's; the library sets it up
  // and keeps it), each with the image as it was when set up.
  const uint8_t* RampByteMap() const { return ramp_byte_map_; }
  const CQnBitmap* RampSource() const { return ramp_source_; }
  const uint32_t* DoubleMapFront() const { return double_map_front_; }
  const uint32_t* DoubleMapBack() const { return double_map_back_; }
  const CQnBitmap* DoubleMapSource() const { return double_map_source_; }
  const float* NoiseTable() const { return noise_table_; }
  const CQnBitmap* NoiseSource() const { return noise_source_; }
  const int* AnimationParameters() const { return animation_parameters_; }

 private:
  // The info header must start 4-byte aligned for GDI; the two bytes in
  // front of the packed 14-byte file header put it there.
  struct Headers {
    uint16_t alignment;
    QnBmpFileHeader file;
    QnBmpInfoHeader info;
  };

  void LoadDescribed(PixelSource& source);
  void ReadWorkingRows(PixelSource& source, const qnutil::raster::PixelLayout& layout,
                       uint32_t* words);
  // The pixel buffer is always set through these, so that its capacity is
  // known: conversions, crop and blur then work in place, and repeated
  // loads reuse the allocation.
  void ReleasePixels();
  void SetPixels(uint8_t* pixels, uint32_t capacity);
  // Empties the object and returns a buffer of at least `bytes`: the old
  // one when it is large enough, else a new one (null when none could be
  // had); `capacity` receives its size.
  uint8_t* RecycleBuffer(uint32_t bytes, uint32_t* capacity);
  // Stride, sizes and header fields of a working-format buffer.
  void SetWorkingLayout();
  bool InWorkingFormat() const { return pixels_ && bytes_per_pixel_ == 4; }
  void WriteSavedHeaders(uint8_t* destination) const;
  void ClearFourthBytes();
  void ReleaseEffectState();

  Headers headers_;
  uint32_t palette_count_ = 0;
  uint8_t palette_[kPaletteEntries * 4] = {};
  uint32_t stride_ = 0;
  uint32_t bytes_per_pixel_ = 0;
  uint32_t buffer_size_ = 0;
  uint8_t* pixels_ = nullptr;  // malloc / free
  uint32_t capacity_ = 0;      // bytes allocated at pixels_ (>= buffer_size_)
  int interpolation_mode_ = 0;
  int colour_space_ = 0;
  uint8_t colour_ramp_[kColourRampEntries * 4] = {};

  // Effect state, in the order the original object holds it.
  uint8_t* ramp_byte_map_ = nullptr;      // InitColourRamp: width × height bytes
  CQnBitmap* ramp_source_ = nullptr;      // InitColourRamp
  uint32_t* double_map_front_ = nullptr;  // InitDoubleMap: width × height words each
  uint32_t* double_map_back_ = nullptr;
  // Two numbers the animated effects take, 5 and 3 from the start; the
  // library runs none of those effects and only keeps them.
  int animation_parameters_[2] = {5, 3};
  CQnBitmap* double_map_source_ = nullptr;  // InitDoubleMap
  float* noise_table_ = nullptr;            // InitNoiseTable: kNoiseTableValues floats
  CQnBitmap* noise_source_ = nullptr;       // InitNoiseTable
};
