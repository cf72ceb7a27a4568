#include "bmp_output.h"

#include <filesystem>

#include "qnutil/raster.h"

namespace qnutil_tool {

bool save_bmp(const std::string& path, int width, int height,
              const std::vector<std::uint32_t>& words) {
  // The engine takes rows bottom-up, as BMP files hold them.
  std::vector<std::uint32_t> rows;
  rows.reserve(words.size());
  for (int y = height - 1; y >= 0; --y) {
    rows.insert(rows.end(), words.begin() + static_cast<std::ptrdiff_t>(y) * width,
                words.begin() + static_cast<std::ptrdiff_t>(y + 1) * width);
  }
  const std::uint32_t bytes = static_cast<std::uint32_t>(rows.size() * 4);
  const QnBmpFileHeader file{0x4D42, 54 + bytes, 0, 0, 54};
  const QnBmpInfoHeader info{40, width, height, 1, 32, 0, bytes, 0, 0, 0, 0};
  bmpExHandle image = nullptr;
  if (!bmpExInit(&image) || !bmpExLoadFromBits3(image, &file, &info, rows.data())) return false;
  std::error_code error;
  std::filesystem::remove(path, error);
  bmpExSaveToFile(image, path.c_str());
  return std::filesystem::exists(path, error);
}

}  // namespace qnutil_tool
