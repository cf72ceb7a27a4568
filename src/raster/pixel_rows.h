// Row kernels between the BMP depths and the working format.
#pragma once

#include <cstdint>

namespace qnutil::raster {

// Pixel words of an 8-bit image, one per palette index: blue | green << 8 |
// red << 16 from the BMP colour table (4 bytes an entry).
void palette_words(const uint8_t* palette, uint32_t words[256]);

// Converts one row of `width` pixels of the given depth to working-format
// words. 16-bit pixels are 5-5-5 words whose 5-bit values are placed in the
// byte lanes unscaled (31 stays 31): the engine has always done so and
// images made from such files depend on it. Depths other than 8, 16, 24
// and 32 give black pixels.
void row_to_working(const uint8_t* source, uint32_t* destination, int width, unsigned bit_count,
                    const uint32_t* palette_words);

// Widens a buffer of 24-bit rows (stride24 bytes each) to working-format
// words in place, last row and last pixel first; the buffer must hold
// width × 4 × height bytes.
void expand_24bit_in_place(uint8_t* buffer, int width, int height, uint32_t stride24);

// Converts one row of working-format words to 24-bit blue, green, red
// triples and zeroes the padding up to `stride` bytes. The destination may
// be the source row itself or lie before it in the same buffer.
void row_to_24bit(const uint32_t* source, uint8_t* destination, int width, uint32_t stride);

}  // namespace qnutil::raster
