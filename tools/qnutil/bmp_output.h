// Pictures the tool draws or computes, written as BMP files by the
// library's raster engine.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qnutil_tool {

// Saves `width` x `height` 0x00RRGGBB words, rows top-down, as a 24-bit BMP
// file; false when the file was not written.
bool save_bmp(const std::string& path, int width, int height,
              const std::vector<std::uint32_t>& words);

}  // namespace qnutil_tool
