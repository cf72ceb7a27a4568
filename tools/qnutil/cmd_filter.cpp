// qnutil filter: inspect and run image filter plug-ins (.8bf) through the
// library's plug-in host. Windows builds only; the BMP files are read and
// written here (24 and 32 bits per pixel, uncompressed).
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "qnutil/qnutil_win32.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_filter_command(int argc, char** argv);

const Command kFilter{"filter", "show or run an image filter plug-in (.8bf; Windows builds)",
                      "filter info PLUGIN\n"
                      "       qnutil filter apply PLUGIN IN.bmp OUT.bmp [--repeat]\n"
                      "  info   prints the plug-in's category, name and entry point once it\n"
                      "         loaded and its entry point resolved\n"
                      "  apply  runs the filter over a 24- or 32-bit BMP, progress on stderr;\n"
                      "         --repeat applies it a second time with the kept parameters",
                      run_filter_command};

#ifdef _WIN32

// Pixels as the plug-in host takes them: rows top-down, blue, green, red,
// alpha.
struct Picture {
  int32_t width = 0;
  int32_t height = 0;
  int bitsPerPixel = 32;
  std::vector<uint8_t> pixels;
};

uint32_t u32(const std::vector<uint8_t>& bytes, size_t at) {
  return uint32_t(bytes[at]) | uint32_t(bytes[at + 1]) << 8 | uint32_t(bytes[at + 2]) << 16 |
         uint32_t(bytes[at + 3]) << 24;
}

void put16(std::vector<uint8_t>& out, uint32_t value) {
  out.push_back(uint8_t(value));
  out.push_back(uint8_t(value >> 8));
}
void put32(std::vector<uint8_t>& out, uint32_t value) {
  put16(out, value & 0xFFFF);
  put16(out, value >> 16);
}

bool read_bmp(const char* path, Picture& picture, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) {
    error = "cannot read the file";
    return false;
  }
  if (bytes.size() < 54 || bytes[0] != 'B' || bytes[1] != 'M') {
    error = "not a BMP file";
    return false;
  }
  const uint32_t offset = u32(bytes, 10);
  const auto width = int32_t(u32(bytes, 18));
  const auto rawHeight = int32_t(u32(bytes, 22));
  const int bits = bytes[28] | bytes[29] << 8;
  const uint32_t compression = u32(bytes, 30);
  if ((bits != 24 && bits != 32) || compression != 0 || width <= 0 || width > 32767 || rawHeight == 0 ||
      rawHeight < -32767 || rawHeight > 32767) {
    error = "only uncompressed 24- and 32-bit BMP files up to 32767 pixels a side are supported";
    return false;
  }
  const int32_t height = rawHeight < 0 ? -rawHeight : rawHeight;
  const size_t stride = (size_t(width) * bits / 8 + 3) & ~size_t(3);
  if (offset > bytes.size() || (bytes.size() - offset) / stride < size_t(height)) {
    error = "the file is shorter than its pixels";
    return false;
  }
  picture = Picture{width, height, bits, std::vector<uint8_t>(size_t(width) * height * 4)};
  for (int32_t y = 0; y < height; ++y) {
    const int32_t fileRow = rawHeight < 0 ? y : height - 1 - y;
    const uint8_t* from = bytes.data() + offset + fileRow * stride;
    uint8_t* to = picture.pixels.data() + size_t(y) * width * 4;
    for (int32_t x = 0; x < width; ++x, from += bits / 8, to += 4) {
      std::memcpy(to, from, 3);
      to[3] = bits == 32 ? from[3] : 0xFF;
    }
  }
  return true;
}

bool write_bmp(const char* path, const Picture& picture) {
  const int bytesPerPixel = picture.bitsPerPixel / 8;
  const size_t stride = (size_t(picture.width) * bytesPerPixel + 3) & ~size_t(3);
  std::vector<uint8_t> out{'B', 'M'};
  put32(out, uint32_t(54 + stride * picture.height));
  put32(out, 0);
  put32(out, 54);
  put32(out, 40);
  put32(out, uint32_t(picture.width));
  put32(out, uint32_t(picture.height));  // bottom-up
  put16(out, 1);
  put16(out, uint32_t(picture.bitsPerPixel));
  for (int i = 0; i < 6; ++i) put32(out, 0);
  for (int32_t y = picture.height - 1; y >= 0; --y) {
    const uint8_t* from = picture.pixels.data() + size_t(y) * picture.width * 4;
    for (int32_t x = 0; x < picture.width; ++x, from += 4) out.insert(out.end(), from, from + bytesPerPixel);
    out.resize(out.size() + stride - size_t(picture.width) * bytesPerPixel, 0);
  }
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(out.data()), std::streamsize(out.size()));
  return bool(file);
}

constexpr int kBarWidth = 40;

bool QNUTIL_CALL draw_progress(float fraction, int32_t) {
  if (!(fraction >= 0)) fraction = 0;  // also NaN from a plug-in reporting 0 of 0
  if (fraction > 1) fraction = 1;
  const int filled = int(std::lround(fraction * kBarWidth));
  std::fprintf(stderr, "\r[%s%s] %3d%%", std::string(filled, '#').c_str(), std::string(kBarWidth - filled, ' ').c_str(),
               int(std::lround(fraction * 100)));
  std::fflush(stderr);
  return true;
}

// Loads the plug-in; prints why not on failure.
PSFilter_* load(const char* path, char** category, char** name) {
  PSFilter_* filter = nullptr;
  int32_t error = 0;
  if (!AVGetPSFilterAndInfo(path, category, name, &filter, &error)) {
    std::fprintf(stderr, "qnutil filter: %s is not a usable filter plug-in for this build (error %d)\n", path,
                 int(error));
    return nullptr;
  }
  return filter;
}

int show_info(const char* path) {
  char* category = nullptr;
  char* name = nullptr;
  PSFilter_* filter = load(path, &category, &name);
  if (!filter) return 1;
  char entry[256] = "";
  AVGetPSFilterEntryName(filter, entry, sizeof entry);
  std::printf("category: %s\nname:     %s\nentry:    %s\n", category, name, entry);
  AVFreeGotPSFilterInfo(&category, &name);
  AVFreeGotPSFilter(&filter);
  return 0;
}

// One run over picture's pixels, replaced by the result on success.
bool apply_once(PSFilter_* filter, Picture& picture, bool repeatLast) {
  unsigned char* result = nullptr;
  int32_t status = 0;
  const bool ok = AVApplyPSFilter(filter, repeatLast, draw_progress, 0, picture.pixels.data(), picture.width,
                                  picture.height, picture.width * 4, &result, &status);
  std::fprintf(stderr, "\n");
  if (ok) std::memcpy(picture.pixels.data(), result, picture.pixels.size());
  AVFreeGotPSFilterImage(&result);
  if (!ok) std::fprintf(stderr, "qnutil filter: the filter failed with status %d\n", int(status));
  return ok;
}

int apply(const char* path, const char* input, const char* output, bool repeat) {
  Picture picture;
  std::string error;
  if (!read_bmp(input, picture, error)) {
    std::fprintf(stderr, "qnutil filter: %s: %s\n", input, error.c_str());
    return 1;
  }
  PSFilter_* filter = load(path, nullptr, nullptr);
  if (!filter) return 1;
  bool ok = apply_once(filter, picture, false);
  if (ok && repeat) {
    bool canRepeat = false;
    AVPSFilterCanDoLastFilter(filter, &canRepeat);
    std::fprintf(stderr, "repeating %s kept parameters\n", canRepeat ? "with" : "without");
    ok = apply_once(filter, picture, true);
  }
  AVFreeGotPSFilter(&filter);
  if (!ok) return 1;
  if (!write_bmp(output, picture)) {
    std::fprintf(stderr, "qnutil filter: cannot write %s\n", output);
    return 1;
  }
  return 0;
}

#endif

int run_filter_command(int argc, char** argv) {
  const bool info = argc == 3 && std::strcmp(argv[1], "info") == 0;
  const bool repeat = argc == 6 && std::strcmp(argv[5], "--repeat") == 0;
  const bool applying = (argc == 5 || repeat) && std::strcmp(argv[1], "apply") == 0;
  if (!info && !applying) return usage_error(kFilter);
#ifdef _WIN32
  return info ? show_info(argv[2]) : apply(argv[2], argv[3], argv[4], repeat);
#else
  std::fprintf(stderr, "qnutil filter: filter plug-ins are Windows DLLs; this needs a Windows build of qnutil\n");
  return 1;
#endif
}

const RegisterCommand registered{kFilter};

}  // namespace
}  // namespace qnutil_tool
