// qnutil bmp: BMP files through the raster engine - header information,
// conversion to 24 bits, crop, mirrors, effects and scaled compositing.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "qnutil/qnutil_win32.h"
#include "failure.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_bmp(int argc, char** argv);

const Command kBmp{
    "bmp", "BMP files: info, convert, crop, flip, effects, compose",
    "bmp info FILE\n"
    "       qnutil bmp convert IN OUT             (any 8/16/24/32-bit BMP in, 24-bit BMP out)\n"
    "       qnutil bmp crop IN OUT X Y WIDTH HEIGHT\n"
    "       qnutil bmp flip-h IN OUT | flip-v IN OUT\n"
    "       qnutil bmp threshold IN OUT LEVEL     (0..255; bright pixels turn black)\n"
    "       qnutil bmp blur IN OUT\n"
    "       qnutil bmp brightness IN OUT DELTA    (-255..255)\n"
    "       qnutil bmp contrast IN OUT LEVEL      (1..100; 1 keeps the image)\n"
    "       qnutil bmp tint IN OUT RRGGBB\n"
    "       qnutil bmp hsi IN OUT [--round-trip]  (hue/saturation/intensity words as colours, or "
    "to them and back)\n"
    "       qnutil bmp compose BASE OVERLAY OUT [--at X Y W H] [--from X Y W H] [--opacity P] "
    "[--mode 0|1|2]",
    run_bmp};

bool parse_int(const char* text, int* value) {
  char* end = nullptr;
  const long parsed = std::strtol(text, &end, 10);
  if (!*text || *end || parsed < -2147483647L - 1 || parsed > 2147483647L) return false;
  *value = static_cast<int>(parsed);
  return true;
}

bool parse_ints(char** texts, int count, int* values) {
  for (int i = 0; i < count; ++i)
    if (!parse_int(texts[i], &values[i])) return false;
  return true;
}

bool parse_colour(const char* text, unsigned* colour) {
  if (text[0] == '#') ++text;
  char* end = nullptr;
  const unsigned long parsed = std::strtoul(text, &end, 16);
  if (std::strlen(text) != 6 || *end) return false;
  *colour = static_cast<unsigned>(parsed);
  return true;
}

std::vector<unsigned char> read_header(const char* path) {
  std::vector<unsigned char> header(54);
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return {};
  header.resize(std::fread(header.data(), 1, header.size(), file));
  std::fclose(file);
  return header;
}

uint32_t le(const std::vector<unsigned char>& bytes, size_t at, int size) {
  uint32_t value = 0;
  for (int i = size - 1; i >= 0; --i) value = value << 8 | bytes[at + i];
  return value;
}

// Loads path into a new image object; reports and returns null when the
// file cannot be read.
bmpExHandle load(const char* path) {
  if (read_header(path).empty()) {
    std::fprintf(stderr, "qnutil bmp: cannot read %s\n", path);
    return nullptr;
  }
  bmpExHandle image = nullptr;
  if (!bmpExInit(&image) || !bmpExLoad(image, path)) return nullptr;
  return image;
}

int save(bmpExHandle image, const char* path) {
  std::remove(path);
  bmpExSaveToFile(image, path);
  if (read_header(path).empty()) {
    std::fprintf(stderr, "qnutil bmp: nothing written to %s (unsupported input, or cannot write)\n",
                 path);
    return 1;
  }
  return 0;
}

// Whether the engine kept pixels after loading: an empty object saves
// nothing.
bool holds_pixels(bmpExHandle image) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path probe = fs::temp_directory_path(error) / "qnutil-bmp-info-probe.bmp";
  fs::remove(probe, error);
  bmpExSaveToFile(image, probe.string().c_str());
  const bool written = fs::exists(probe, error);
  fs::remove(probe, error);
  return written;
}

// Why the engine keeps the headers of such a file but no pixels.
const char* why_no_pixels(unsigned bits, uint32_t colours, int32_t width, int32_t height) {
  if (bits < 8) return "fewer than 8 bits per pixel are not supported";
  if (bits == 8 && colours > 256) return "more palette entries than an 8-bit index can select";
  if (height <= 0) return "a top-down (negative) or zero height is not loaded";
  if (width == 0) return "zero width";
  return "the picture would exceed the engine's largest buffer";
}

int info(const char* path) {
  if (const std::string problem = read_problem(path); !problem.empty()) {
    return fail("bmp", path, problem);
  }
  const auto h = read_header(path);
  if (h.size() < 54) return fail("bmp", path, "not a BMP file (shorter than its 54 header bytes)");
  if (h[0] != 'B' || h[1] != 'M') return fail("bmp", path, "not a BMP file (no \"BM\" signature)");
  const int32_t width = static_cast<int32_t>(le(h, 18, 4)),
                height = static_cast<int32_t>(le(h, 22, 4));
  const unsigned bits = le(h, 28, 2);
  const uint32_t colours = le(h, 46, 4);
  std::printf("%s\n  signature    BM\n  file size    %u (header says)\n  pixel offset %u\n", path,
              le(h, 2, 4), le(h, 10, 4));
  std::printf("  size         %d x %d%s\n  bits/pixel   %u\n  compression  %u\n  colours used %u\n",
              width, height, height < 0 ? " (top-down)" : "", bits, le(h, 30, 4), colours);
  bmpExHandle image = nullptr;
  if (!bmpExInit(&image)) return fail("bmp", path, "out of memory");
  bmpExLoad(image, path);
  if (!holds_pixels(image)) {
    std::printf("  engine       keeps the headers but no pixels: %s\n",
                why_no_pixels(bits, colours, width, height));
  } else if (bits == 8 || bits == 16 || bits == 24 || bits == 32) {
    std::printf("  engine       reads %d x %d pixels into 32-bit words%s\n", width, height,
                bits == 16 ? " (16-bit channels stay 0..31)" : "");
  } else {
    std::printf("  engine       makes %d x %d black pixels (no rule for %u bits per pixel)\n",
                width, height, bits);
  }
  return 0;
}

// One in-place operation from IN to OUT with `count` integer arguments.
template <class Operation>
int transform(int argc, char** argv, int count, Operation operation) {
  int values[4] = {};
  if (argc != 4 + count || !parse_ints(argv + 4, count, values)) return usage_error(kBmp);
  bmpExHandle image = load(argv[2]);
  if (!image) return 1;
  operation(image, values);
  return save(image, argv[3]);
}

int compose(int argc, char** argv) {
  if (argc < 5) return usage_error(kBmp);
  int at[4] = {0, 0, -1, -1}, from[4] = {0, 0, -1, -1}, opacity = 100, mode = 1;
  for (int i = 5; i < argc; ++i) {
    const std::string option = argv[i];
    if ((option == "--at" || option == "--from") && i + 4 < argc) {
      if (!parse_ints(argv + i + 1, 4, option == "--at" ? at : from)) return usage_error(kBmp);
      i += 4;
    } else if (option == "--opacity" && i + 1 < argc && parse_int(argv[i + 1], &opacity)) {
      ++i;
    } else if (option == "--mode" && i + 1 < argc && parse_int(argv[i + 1], &mode) && mode >= 0 &&
               mode <= 2) {
      ++i;
    } else {
      return usage_error(kBmp);
    }
  }
  bmpExHandle base = load(argv[2]), overlay = load(argv[3]);
  if (!base || !overlay) return 1;
  int width = 0, height = 0, overlay_width = 0, overlay_height = 0;
  bmpExGetSize(base, &width, &height);
  bmpExGetSize(overlay, &overlay_width, &overlay_height);
  // Extents are inclusive: the whole picture is width - 1 by height - 1.
  if (at[2] < 0) at[2] = width - 1 - at[0], at[3] = height - 1 - at[1];
  if (from[2] < 0) from[2] = overlay_width - 1 - from[0], from[3] = overlay_height - 1 - from[1];
  bmpExDrawBitmap(base, at[0], at[1], at[2], at[3], overlay, from[0], from[1], from[2], from[3],
                  opacity, mode);
  return save(base, argv[4]);
}

int run_bmp(int argc, char** argv) {
  if (argc < 3) return usage_error(kBmp);
  const std::string action = argv[1];
  if (action == "info") return argc == 3 ? info(argv[2]) : usage_error(kBmp);
  if (action == "compose") return compose(argc, argv);
  if (argc < 4) return usage_error(kBmp);
  if (action == "convert") return transform(argc, argv, 0, [](bmpExHandle, int*) {});
  if (action == "crop")
    return transform(argc, argv, 4,
                     [](bmpExHandle i, int* v) { bmpExCrop(i, v[0], v[1], v[2], v[3]); });
  if (action == "flip-h")
    return transform(argc, argv, 0, [](bmpExHandle i, int*) { bmpExFlip(i, 1); });
  if (action == "flip-v")
    return transform(argc, argv, 0, [](bmpExHandle i, int*) { bmpExFlip(i, 0); });
  if (action == "threshold")
    return transform(argc, argv, 1, [](bmpExHandle i, int* v) { bmpExThreshold(i, v[0]); });
  if (action == "blur") return transform(argc, argv, 0, [](bmpExHandle i, int*) { bmpExBlur(i); });
  if (action == "brightness")
    return transform(argc, argv, 1, [](bmpExHandle i, int* v) { bmpExBrightness(i, v[0]); });
  if (action == "contrast")
    return transform(argc, argv, 1, [](bmpExHandle i, int* v) { bmpExContrast(i, v[0]); });
  if (action == "tint") {
    unsigned colour = 0;
    if (argc != 5 || !parse_colour(argv[4], &colour)) return usage_error(kBmp);
    bmpExHandle image = load(argv[2]);
    if (!image) return 1;
    bmpExTint(image, colour);
    return save(image, argv[3]);
  }
  if (action == "hsi") {
    const bool round_trip = argc == 5 && std::strcmp(argv[4], "--round-trip") == 0;
    if (argc != 4 && !round_trip) return usage_error(kBmp);
    bmpExHandle image = load(argv[2]);
    if (!image) return 1;
    bmpExConvertHsi(image, 1);
    if (round_trip) bmpExConvertHsi(image, 0);
    return save(image, argv[3]);
  }
  return usage_error(kBmp);
}

// The raster tour: the bundled sample through every operation, each result
// written next to the original.
int demo_raster(const DemoContext& context) {
  const std::string sample = (context.samples / "raster" / "sample.bmp").string();
  auto out = [&](const char* name) { return (context.output / name).string(); };
  struct Step {
    const char* file;
    const char* what;
    void (*apply)(bmpExHandle image, bmpExHandle sample);
  };
  const Step steps[] = {
      {"raster-original.bmp", "the sample as loaded and saved (24-bit)",
       [](bmpExHandle, bmpExHandle) {}},
      {"raster-crop.bmp", "crop 20,10 48x40",
       [](bmpExHandle i, bmpExHandle) { bmpExCrop(i, 20, 10, 48, 40); }},
      {"raster-flip-h.bmp", "mirrored left to right",
       [](bmpExHandle i, bmpExHandle) { bmpExFlip(i, 1); }},
      {"raster-flip-v.bmp", "mirrored top to bottom",
       [](bmpExHandle i, bmpExHandle) { bmpExFlip(i, 0); }},
      {"raster-threshold.bmp", "threshold 128",
       [](bmpExHandle i, bmpExHandle) { bmpExThreshold(i, 128); }},
      {"raster-blur.bmp", "blurred three times",
       [](bmpExHandle i, bmpExHandle) { bmpExBlur(i), bmpExBlur(i), bmpExBlur(i); }},
      {"raster-brightness.bmp", "brightness +60",
       [](bmpExHandle i, bmpExHandle) { bmpExBrightness(i, 60); }},
      {"raster-contrast.bmp", "contrast 3",
       [](bmpExHandle i, bmpExHandle) { bmpExContrast(i, 3); }},
      {"raster-tint.bmp", "tinted toward #C08040",
       [](bmpExHandle i, bmpExHandle) { bmpExTint(i, 0xC08040); }},
      {"raster-hsi.bmp", "hue/saturation/intensity words shown as colours",
       [](bmpExHandle i, bmpExHandle) { bmpExConvertHsi(i, 1); }},
      {"raster-hsi-back.bmp", "to hue/saturation/intensity and back",
       [](bmpExHandle i, bmpExHandle) { bmpExConvertHsi(i, 1), bmpExConvertHsi(i, 0); }},
      {"raster-compose-nearest.bmp", "a quarter of the sample enlarged onto it, nearest pixel, 70%",
       [](bmpExHandle i, bmpExHandle s) {
         bmpExDrawBitmap(i, 8, 8, 59, 39, s, 20, 14, 23, 15, 70, 0);
       }},
      {"raster-compose-bilinear.bmp", "the same, bilinear",
       [](bmpExHandle i, bmpExHandle s) {
         bmpExDrawBitmap(i, 8, 8, 59, 39, s, 20, 14, 23, 15, 70, 1);
       }},
      {"raster-compose-smooth.bmp",
       "the same, smoothing; and the whole sample reduced into a corner",
       [](bmpExHandle i, bmpExHandle s) {
         bmpExDrawBitmap(i, 8, 8, 59, 39, s, 20, 14, 23, 15, 70, 2);
         bmpExDrawBitmap(i, 64, 40, 31, 23, s, 0, 0, 95, 63, 100, 2);
       }},
  };
  bmpExHandle original = load(sample.c_str());
  if (!original) return 1;
  int failures = 0;
  for (const Step& step : steps) {
    bmpExHandle image = load(sample.c_str());
    if (!image) return 1;
    step.apply(image, original);
    const int status = save(image, out(step.file).c_str());
    failures += status;
    int width = 0, height = 0;
    bmpExGetSize(image, &width, &height);
    std::printf("  %-30s %3dx%-3d %s\n", step.file, width, height, step.what);
  }
  return failures ? 1 : 0;
}

const RegisterCommand registered{kBmp};
const RegisterDemoStep demo{{60, "raster images (bmpEx)", demo_raster}};

}  // namespace
}  // namespace qnutil_tool
