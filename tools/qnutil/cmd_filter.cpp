// qnutil filter: inspect and run image filter plug-ins (.8bf) through the
// library's plug-in host. Windows builds only; the library's raster engine
// reads and writes the BMP files, GDI hands over the pixels in between.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

#include "qnutil/qnutil_win32.h"
#include "bmp_output.h"
#include "failure.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_filter_command(int argc, char** argv);

const Command kFilter{"filter", "show or run an image filter plug-in (.8bf; Windows builds)",
                      "filter info PLUGIN\n"
                      "       qnutil filter apply PLUGIN IN.bmp OUT.bmp [--repeat]\n"
                      "  info   prints the plug-in's category, name and entry point once it\n"
                      "         loaded and its entry point resolved\n"
                      "  apply  runs the filter over a BMP image, progress on stderr;\n"
                      "         --repeat applies it a second time with the kept parameters",
                      run_filter_command};

#ifdef _WIN32

// Pixels as the plug-in host takes them: rows top-down, blue, green, red,
// alpha.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> pixels;
};

// Reads any BMP file the library's raster engine reads; its pixels come
// out as the top-down 32-bit device bitmap the engine makes of them.
bool read_bmp(const char* path, Picture& picture, std::string& error) {
  error = read_problem(path);
  if (!error.empty()) return false;
  bmpExHandle image = nullptr;
  HBITMAP bitmap = nullptr;
  if (!bmpExInit(&image) || !bmpExLoad(image, path) || !bmpExSave(image, &bitmap) || !bitmap) {
    error = "the raster engine reads no pixels from it (qnutil bmp info says why)";
    return false;
  }
  bmpExGetSize(image, &picture.width, &picture.height);
  picture.pixels.assign(std::size_t(picture.width) * picture.height * 4, 0);
  BITMAPINFO info{};
  info.bmiHeader = {
      sizeof info.bmiHeader, picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr);
  const int rows = GetDIBits(screen, bitmap, 0, UINT(picture.height), picture.pixels.data(), &info,
                             DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  DeleteObject(bitmap);
  if (rows != picture.height) {
    error = "its pixels could not be read";
    return false;
  }
  for (std::size_t i = 3; i < picture.pixels.size(); i += 4) picture.pixels[i] = 0xFF;  // opaque
  return true;
}

bool write_bmp(const char* path, const Picture& picture) {
  std::vector<uint32_t> words(std::size_t(picture.width) * picture.height);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const uint8_t* bgra = &picture.pixels[4 * i];
    words[i] = uint32_t(bgra[2]) << 16 | uint32_t(bgra[1]) << 8 | bgra[0];
  }
  return save_bmp(path, picture.width, picture.height, words);
}

constexpr int kBarWidth = 40;

bool QNUTIL_CALL draw_progress(float fraction, int32_t) {
  if (!(fraction >= 0)) fraction = 0;  // also NaN from a plug-in reporting 0 of 0
  if (fraction > 1) fraction = 1;
  const int filled = int(std::lround(fraction * kBarWidth));
  std::fprintf(stderr, "\r[%s%s] %3d%%", std::string(filled, '#').c_str(),
               std::string(kBarWidth - filled, ' ').c_str(), int(std::lround(fraction * 100)));
  std::fflush(stderr);
  return true;
}

// Loads the plug-in; prints why not on failure.
PSFilter_* load(const char* path, char** category, char** name) {
  PSFilter_* filter = nullptr;
  int32_t error = 0;
  if (!AVGetPSFilterAndInfo(path, category, name, &filter, &error)) {
    std::fprintf(stderr,
                 "qnutil filter: %s is not a usable filter plug-in for this build (error %d)\n",
                 path, int(error));
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
  const bool ok =
      AVApplyPSFilter(filter, repeatLast, draw_progress, 0, picture.pixels.data(), picture.width,
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
  if (!read_bmp(input, picture, error)) return fail("filter", input, error);
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
  if (!write_bmp(output, picture)) return fail("filter", output, write_problem(output));
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
  std::fprintf(
      stderr,
      "qnutil filter: filter plug-ins are Windows DLLs; this needs a Windows build of qnutil\n");
  return 1;
#endif
}

const RegisterCommand registered{kFilter};

}  // namespace
}  // namespace qnutil_tool
