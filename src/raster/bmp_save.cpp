// Savers: 24-bit BMP files and memory images.
//
// Saving has always meant "convert to 24 bits, write, convert back", which
// leaves the image in the working format with the fourth byte of every
// pixel cleared. The conversion is done a slice of rows at a time into a
// scratch buffer instead of a second full image; the visible result is the
// same.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "raster/pixel_layout.h"
#include "raster/pixel_rows.h"
#include "raster/qn_bitmap.h"

namespace {

constexpr size_t kSliceBytes = 256 * 1024;

// Calls emit(bytes, n) with the 24-bit rows of a working-format image, a
// slice at a time, bottom row first.
template <class Emit>
void for_each_24bit_slice(const uint8_t* pixels, uint32_t stride, int width, int height,
                          Emit&& emit) {
  const uint32_t stride24 = *qnutil::raster::stride_for(width, 3);
  const size_t rows_per_slice = std::max<size_t>(1, kSliceBytes / stride24);
  std::vector<uint8_t> slice(std::min<size_t>(rows_per_slice, height) * stride24);
  for (int first = 0; first < height;) {
    const int rows = static_cast<int>(std::min<size_t>(rows_per_slice, height - first));
    for (int r = 0; r < rows; ++r)
      qnutil::raster::row_to_24bit(
          reinterpret_cast<const uint32_t*>(pixels + size_t(first + r) * stride),
          slice.data() + size_t{stride24} * r, width, stride24);
    if (!emit(slice.data(), size_t{stride24} * rows)) return;
    first += rows;
  }
}

}  // namespace

void CQnBitmap::WriteSavedHeaders(uint8_t* destination) const {
  Headers saved = headers_;
  const uint32_t stride24 = *qnutil::raster::stride_for(Width(), 3);
  saved.file.bfOffBits = kHeaderBytes;
  saved.file.bfSize = stride24 * static_cast<uint32_t>(Height()) + kHeaderBytes;
  saved.info.biBitCount = 24;
  std::memcpy(destination, &saved.file, kHeaderBytes);
}

// The state "convert back to 32 bits" leaves: fourth bytes zero, header
// fields recomputed for the working buffer.
void CQnBitmap::ClearFourthBytes() {
  auto* words = reinterpret_cast<uint32_t*>(pixels_);
  for (uint32_t i = 0, n = buffer_size_ / 4; i < n; ++i) words[i] &= 0x00FFFFFFu;
  SetWorkingLayout();
}

void CQnBitmap::SaveToFile(const char* path) {
  if (!pixels_ || !path) return;
  ConvertTo32Bit();
  if (std::FILE* file = std::fopen(path, "wb")) {
    uint8_t header[kHeaderBytes];
    WriteSavedHeaders(header);
    bool ok = std::fwrite(header, 1, sizeof header, file) == sizeof header;
    if (ok)
      for_each_24bit_slice(
          pixels_, stride_, Width(), Height(),
          [&](const uint8_t* bytes, size_t n) { return std::fwrite(bytes, 1, n, file) == n; });
    std::fclose(file);
  }
  // The conversion back runs whether or not the file could be written.
  ClearFourthBytes();
}

size_t CQnBitmap::SavedMemorySize() const {
  if (!pixels_) return 0;
  return kHeaderBytes + 4u * size_t{palette_count_} +
         size_t{*qnutil::raster::stride_for(Width(), 3)} * static_cast<uint32_t>(Height());
}

void CQnBitmap::SaveToMemory(void* destination) {
  SaveToMemory(destination, static_cast<size_t>(-1));
}

bool CQnBitmap::SaveToMemory(void* destination, size_t capacity) {
  if (!pixels_ || !destination) return false;
  ConvertTo32Bit();
  if (capacity < SavedMemorySize()) return false;
  auto* out = static_cast<uint8_t*>(destination);
  WriteSavedHeaders(out);
  // The pixels go after room for the palette as its count stands, although
  // a 24-bit image has no palette and the header says 54: memory images
  // have always been laid out so, and readers of them skip the same gap.
  out += kHeaderBytes + 4u * size_t{palette_count_};
  for_each_24bit_slice(pixels_, stride_, Width(), Height(), [&](const uint8_t* bytes, size_t n) {
    std::memcpy(out, bytes, n);
    out += n;
    return true;
  });
  ClearFourthBytes();
  return true;
}

void CQnBitmap::SaveAtEnd(const char* path) {
  if (!pixels_ || !path) return;
  // The file must exist already: appending creates nothing. A missing file
  // is simply left alone and the image stays as it is; an exception out of
  // here could not cross the library boundary anyway.
  std::FILE* file = std::fopen(path, "r+b");
  if (!file) return;
  ConvertTo32Bit();
  if (std::fseek(file, 0, SEEK_END) == 0) {
    uint8_t header[kHeaderBytes];
    WriteSavedHeaders(header);
    if (std::fwrite(header, 1, sizeof header, file) == sizeof header)
      for_each_24bit_slice(
          pixels_, stride_, Width(), Height(),
          [&](const uint8_t* bytes, size_t n) { return std::fwrite(bytes, 1, n, file) == n; });
  }
  std::fclose(file);
  ClearFourthBytes();
}
