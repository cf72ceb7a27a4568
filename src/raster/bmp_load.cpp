// Loaders. The engine's BMP reading is deliberately simple and kept so:
// the signature, compression and planes are not checked, and the pixel data
// is taken to follow the palette directly (bfOffBits is not used), so that
// images read exactly as they always have. What is added: sizes are checked
// before anything is allocated, and whatever the source lacks reads as zero.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "raster/pixel_layout.h"
#include "raster/pixel_rows.h"
#include "raster/qn_bitmap.h"

namespace {

// Pixel rows are converted a slice at a time, so that a file's bytes pass
// through a cache-sized scratch buffer instead of a second full image.
constexpr size_t kSliceBytes = 256 * 1024;

constexpr size_t kUnknownLength = std::numeric_limits<size_t>::max();

}  // namespace

// Where the bytes of one image come from. Palette bytes are asked for
// first, then the pixel rows in order.
struct CQnBitmap::PixelSource {
  virtual ~PixelSource() = default;
  // Copies n palette bytes; missing bytes read as zero.
  virtual void ReadPalette(uint8_t* destination, size_t n) = 0;
  // Called once before the rows, with the palette count as it then stands
  // (memory images place their pixels by it).
  virtual void BeginPixels(uint32_t palette_count) = 0;
  // The next n bytes of pixel data, either in place or copied into scratch
  // (which holds n bytes) with missing bytes zeroed.
  virtual const uint8_t* NextPixels(size_t n, uint8_t* scratch) = 0;

  QnBmpInfoHeader info{};
};

namespace {

class FileSource final : public CQnBitmap::PixelSource {
 public:
  explicit FileSource(std::FILE* file) : file_(file) {}
  void ReadPalette(uint8_t* destination, size_t n) override { Read(destination, n); }
  void BeginPixels(uint32_t) override {}
  const uint8_t* NextPixels(size_t n, uint8_t* scratch) override {
    Read(scratch, n);
    return scratch;
  }
  // A short file leaves the rest zero rather than uninitialised.
  void Read(void* destination, size_t n) {
    const size_t got = std::fread(destination, 1, n, file_);
    std::memset(static_cast<uint8_t*>(destination) + got, 0, n - got);
  }

 private:
  std::FILE* file_;
};

class MemorySource final : public CQnBitmap::PixelSource {
 public:
  // Palette at palette_offset; pixels at pixel_base + 4 × palette count.
  MemorySource(const uint8_t* bytes, size_t length, size_t palette_offset, size_t pixel_base)
      : bytes_(bytes), length_(length), palette_offset_(palette_offset), pixel_base_(pixel_base) {}

  void ReadPalette(uint8_t* destination, size_t n) override {
    const uint8_t* data = Bytes(palette_offset_, n, destination);
    if (data != destination) std::memcpy(destination, data, n);
  }
  void BeginPixels(uint32_t palette_count) override {
    position_ = pixel_base_ + 4u * size_t{palette_count};
  }
  const uint8_t* NextPixels(size_t n, uint8_t* scratch) override {
    const uint8_t* data = Bytes(position_, n, scratch);
    position_ += n;
    return data;
  }

 private:
  // n bytes at offset: in place when all are there, else what there is
  // copied into scratch and the rest zeroed.
  const uint8_t* Bytes(size_t offset, size_t n, uint8_t* scratch) const {
    if (length_ == kUnknownLength || (offset <= length_ && n <= length_ - offset))
      return bytes_ + offset;
    const size_t available = offset < length_ ? length_ - offset : 0;
    std::memcpy(scratch, bytes_ + offset, available);
    std::memset(scratch + available, 0, n - available);
    return scratch;
  }

  const uint8_t* bytes_;
  size_t length_;
  size_t palette_offset_;
  size_t pixel_base_;
  size_t position_ = 0;
};

// Copies a header out of a memory image; bytes beyond the length read as 0.
template <class Header>
Header header_at(const uint8_t* bytes, size_t length, size_t offset) {
  uint8_t raw[sizeof(Header)] = {};
  if (offset < length) std::memcpy(raw, bytes + offset, std::min(sizeof raw, length - offset));
  Header header;
  std::memcpy(&header, raw, sizeof header);
  return header;
}

}  // namespace

void CQnBitmap::ReadWorkingRows(PixelSource& source, const qnutil::raster::PixelLayout& layout,
                                uint32_t* words) {
  uint32_t palette[256];
  qnutil::raster::palette_words(palette_, palette);
  const int width = headers_.info.biWidth, height = headers_.info.biHeight;
  const size_t rows_per_slice = std::max<size_t>(1, kSliceBytes / layout.stride);
  std::vector<uint8_t> scratch(std::min<size_t>(rows_per_slice, height) * layout.stride);
  source.BeginPixels(palette_count_);
  for (int first = 0; first < height;) {
    const int rows = static_cast<int>(std::min<size_t>(rows_per_slice, height - first));
    const uint8_t* slice = source.NextPixels(size_t{layout.stride} * rows, scratch.data());
    for (int r = 0; r < rows; ++r)
      qnutil::raster::row_to_working(slice + size_t{layout.stride} * r,
                                     words + size_t(first + r) * width, width,
                                     headers_.info.biBitCount, palette);
    first += rows;
  }
}

void CQnBitmap::LoadDescribed(PixelSource& source) {
  // The old pixels go; their allocation is kept for the new ones when it
  // is large enough.
  uint32_t capacity = capacity_;
  std::unique_ptr<uint8_t, decltype(&std::free)> buffer(std::exchange(pixels_, nullptr),
                                                        &std::free);
  SetPixels(nullptr, 0);
  headers_.info = source.info;
  const QnBmpInfoHeader& info = headers_.info;
  bytes_per_pixel_ = info.biBitCount / 8u;
  stride_ = qnutil::raster::stride_for(info.biWidth, bytes_per_pixel_).value_or(0);
  // 1- and 4-bit images are not supported: the object keeps their headers
  // and no pixels.
  if (info.biBitCount < 8) return;
  if (info.biBitCount == 8) {
    const uint32_t count = info.biClrUsed == 0 ? kPaletteEntries : info.biClrUsed;
    // More colours than an index byte can select describe no 8-bit image.
    if (count > kPaletteEntries) return;
    source.ReadPalette(palette_, 4u * count);
    palette_count_ = count;
  }
  const auto layout = qnutil::raster::describe_pixels(info);
  if (!layout) return;
  if (!buffer || capacity < layout->working_bytes) {
    buffer.reset(static_cast<uint8_t*>(std::malloc(layout->working_bytes)));
    capacity = layout->working_bytes;
    if (!buffer) return;
  }
  auto* converted = reinterpret_cast<uint32_t*>(buffer.get());
  // Depths without a pixel rule (12, 48, ...) give black pixels; their
  // bytes are not read at all, however many the header claims.
  const unsigned depth = info.biBitCount;
  if (depth == 8 || depth == 16 || depth == 24 || depth == 32)
    ReadWorkingRows(source, *layout, converted);
  else
    std::memset(converted, 0, layout->working_bytes);
  SetPixels(buffer.release(), capacity);
  SetWorkingLayout();
}

void CQnBitmap::Load(const char* path) {
  if (!path) return;
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return;
  FileSource source(file);
  QnBmpFileHeader file_header{};
  source.Read(&file_header, sizeof file_header);
  source.Read(&source.info, sizeof source.info);
  headers_.file = file_header;
  LoadDescribed(source);
  std::fclose(file);
}

void CQnBitmap::LoadFromBits(const void* bits) { LoadFromBits(bits, kUnknownLength); }

void CQnBitmap::LoadFromBits(const void* bits, size_t length) {
  if (!bits) return;
  const auto* bytes = static_cast<const uint8_t*>(bits);
  MemorySource source(bytes, length, kHeaderBytes, kHeaderBytes);
  source.info = header_at<QnBmpInfoHeader>(bytes, length, sizeof(QnBmpFileHeader));
  headers_.file = header_at<QnBmpFileHeader>(bytes, length, 0);
  LoadDescribed(source);
}

void CQnBitmap::LoadFromBits2(const void* bits, int hasFileHeader) {
  LoadFromBits2(bits, hasFileHeader, kUnknownLength);
}

void CQnBitmap::LoadFromBits2(const void* bits, int hasFileHeader, size_t length) {
  if (hasFileHeader) return LoadFromBits(bits, length);
  if (!bits) return;
  const auto* bytes = static_cast<const uint8_t*>(bits);
  // A packed DIB has no file header, yet its palette has always been read
  // from byte 54 as if it had one; the pixels do start after the info
  // header and palette. Kept: images stored by the host rely on it.
  MemorySource source(bytes, length, kHeaderBytes, sizeof(QnBmpInfoHeader));
  source.info = header_at<QnBmpInfoHeader>(bytes, length, 0);
  LoadDescribed(source);
}

void CQnBitmap::LoadFromBits3(QnBmpFileHeader fileHeader, QnBmpInfoHeader infoHeader,
                              const void* data) {
  LoadFromBits3(fileHeader, infoHeader, data, kUnknownLength);
}

void CQnBitmap::LoadFromBits3(QnBmpFileHeader fileHeader, QnBmpInfoHeader infoHeader,
                              const void* data, size_t length) {
  if (!data) return;
  MemorySource source(static_cast<const uint8_t*>(data), length, 0, 0);
  source.info = infoHeader;
  headers_.file = fileHeader;
  LoadDescribed(source);
}
