// CQnBitmap: lifecycle, the pixel buffer and depth conversions.
#include "raster/qn_bitmap.h"

#include <cstdlib>
#include <cstring>

#include "raster/pixel_layout.h"
#include "raster/pixel_rows.h"

using qnutil::raster::kMaxBufferBytes;

static_assert(sizeof(QnBmpFileHeader) == 14);
static_assert(sizeof(QnBmpInfoHeader) == 40);
static_assert(offsetof(QnBmpFileHeader, bfOffBits) == 10);
static_assert(offsetof(QnBmpInfoHeader, biBitCount) == 14);
static_assert(offsetof(QnBmpInfoHeader, biClrImportant) == 36);

CQnBitmap::CQnBitmap() : headers_{} {
  // The header block is written as 54 contiguous bytes, and GDI reads the
  // info header in place.
  static_assert(offsetof(Headers, info) == offsetof(Headers, file) + 14);
  static_assert(offsetof(Headers, info) % 4 == 0);
}

CQnBitmap::~CQnBitmap() {
  std::free(pixels_);
  ReleaseEffectState();
}

void CQnBitmap::ReleasePixels() { SetPixels(nullptr, 0); }

void CQnBitmap::SetPixels(uint8_t* pixels, uint32_t capacity) {
  if (pixels != pixels_) std::free(pixels_);
  pixels_ = pixels;
  capacity_ = pixels ? capacity : 0;
  if (!pixels) buffer_size_ = 0;
}

uint8_t* CQnBitmap::RecycleBuffer(uint32_t bytes, uint32_t* capacity) {
  uint8_t* buffer = pixels_;
  *capacity = capacity_;
  pixels_ = nullptr;
  capacity_ = buffer_size_ = 0;
  if (buffer && *capacity >= bytes) return buffer;
  std::free(buffer);
  buffer = static_cast<uint8_t*>(std::malloc(bytes ? bytes : 1));
  *capacity = buffer ? bytes : 0;
  return buffer;
}

void CQnBitmap::SetWorkingLayout() {
  bytes_per_pixel_ = 4;
  stride_ = static_cast<uint32_t>(headers_.info.biWidth) * 4u;
  buffer_size_ = stride_ * static_cast<uint32_t>(headers_.info.biHeight);
  headers_.file.bfOffBits = kHeaderBytes;
  headers_.file.bfSize = buffer_size_ + kHeaderBytes;
  headers_.info.biBitCount = 32;
}

uint32_t CQnBitmap::PixelAt(int x, int bufferRow) const {
  uint32_t word;
  std::memcpy(&word,
              pixels_ + static_cast<size_t>(bufferRow) * stride_ + static_cast<size_t>(x) * 4, 4);
  return word;
}

int CQnBitmap::Create(int width, int height) {
  QnBmpInfoHeader& info = headers_.info;
  info.biCompression = info.biSizeImage = 0;
  info.biXPelsPerMeter = info.biYPelsPerMeter = 0;
  info.biClrUsed = 0;
  palette_count_ = 0;
  info.biPlanes = 1;
  info.biBitCount = 32;
  info.biSize = 40;
  info.biWidth = width < 0 ? 0 : width;
  info.biHeight = height < 0 ? 0 : height;
  // A zero-area or impossibly large image stays empty with the size it was
  // asked for, so that its header still tells what the caller wanted.
  const auto layout = qnutil::raster::describe_pixels(info);
  uint32_t capacity = 0;
  uint8_t* pixels = layout ? RecycleBuffer(layout->working_bytes, &capacity) : nullptr;
  if (!pixels) ReleasePixels();
  SetPixels(pixels, capacity);
  SetWorkingLayout();
  if (!pixels) buffer_size_ = 0;
  headers_.file.bfReserved1 = headers_.file.bfReserved2 = 0;
  headers_.file.bfType = kBmpSignature;
  headers_.file.bfSize = buffer_size_ + kHeaderBytes;
  return static_cast<int>(headers_.file.bfSize);
}

void CQnBitmap::Copy(const CQnBitmap* source) {
  if (!source || source == this || source->IsEmpty()) return;
  uint32_t capacity = 0;
  uint8_t* pixels = RecycleBuffer(source->buffer_size_, &capacity);
  if (!pixels) return;
  std::memcpy(pixels, source->pixels_, source->buffer_size_);
  SetPixels(pixels, capacity);
  bytes_per_pixel_ = source->bytes_per_pixel_;
  stride_ = source->stride_;
  headers_.file = source->headers_.file;
  headers_.info = source->headers_.info;
  buffer_size_ = source->buffer_size_;
  palette_count_ = source->palette_count_;
  std::memcpy(palette_, source->palette_, 4u * palette_count_);
  interpolation_mode_ = source->interpolation_mode_;
}

void CQnBitmap::Fill(uint32_t colour) {
  if (!pixels_) return;
  auto* words = reinterpret_cast<uint32_t*>(pixels_);
  for (uint32_t i = 0, n = buffer_size_ / 4; i < n; ++i) words[i] = colour;
}

void CQnBitmap::ConvertTo32Bit() {
  if (!pixels_) return;
  const int width = Width(), height = Height();
  const unsigned depth = headers_.info.biBitCount;
  const size_t working_bytes = static_cast<size_t>(width) * 4 * height;
  if (depth == 32 && bytes_per_pixel_ == 4) {
    // Already words: only the header fields.
  } else if (depth == 24 && bytes_per_pixel_ == 3 && capacity_ >= working_bytes) {
    qnutil::raster::expand_24bit_in_place(pixels_, width, height, stride_);
  } else {
    auto* converted = static_cast<uint8_t*>(std::malloc(working_bytes ? working_bytes : 1));
    if (!converted) return;
    uint32_t palette[256];
    qnutil::raster::palette_words(palette_, palette);
    for (int y = 0; y < height; ++y)
      qnutil::raster::row_to_working(
          pixels_ + static_cast<size_t>(y) * stride_,
          reinterpret_cast<uint32_t*>(converted) + static_cast<size_t>(y) * width, width, depth,
          palette);
    SetPixels(converted, static_cast<uint32_t>(working_bytes));
  }
  SetWorkingLayout();
}

void CQnBitmap::ConvertTo24Bit() {
  // Only the working format has a 24-bit form; converting twice would read
  // 24-bit rows as words. The rows shrink in place, front to back.
  if (!InWorkingFormat() || headers_.info.biBitCount != 32) return;
  const int width = Width(), height = Height();
  const uint32_t stride = *qnutil::raster::stride_for(width, 3);
  for (int y = 0; y < height; ++y)
    qnutil::raster::row_to_24bit(
        reinterpret_cast<const uint32_t*>(pixels_ + static_cast<size_t>(y) * stride_),
        pixels_ + static_cast<size_t>(y) * stride, width, stride);
  stride_ = stride;
  bytes_per_pixel_ = 3;
  buffer_size_ = stride * static_cast<uint32_t>(height);
  headers_.file.bfOffBits = kHeaderBytes;
  headers_.file.bfSize = buffer_size_ + kHeaderBytes;
  headers_.info.biBitCount = 24;
}
