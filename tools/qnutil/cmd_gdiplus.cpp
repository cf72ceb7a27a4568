// qnutil image: image files converted through GDI+ (Windows builds only).
#include <cstdio>
#include <cstring>
#include <string>

#include "qnutil/qnutil_win32.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_image(int argc, char** argv);

const Command kImage{"image", "convert an image file through GDI+ (Windows builds)",
                     "image convert IN OUT [--format png|jpeg|gif|tiff|bmp]\n"
                     "  the format defaults to bmp; JPEG is written at quality 100",
                     run_image};

// gdiPlusSaveImage's format codes.
int format_code(const std::string& name) {
  if (name == "jpeg" || name == "jpg") return 1;
  if (name == "gif") return 2;
  if (name == "tiff" || name == "tif") return 3;
  if (name == "png") return 4;
  if (name == "bmp") return 0;
  return -1;
}

int run_image(int argc, char** argv) {
  int format = 0;
  if (argc == 6 && std::strcmp(argv[4], "--format") == 0) {
    format = format_code(argv[5]);
  } else if (argc != 4) {
    return usage_error(kImage);
  }
  if (std::strcmp(argv[1], "convert") != 0 || format < 0) return usage_error(kImage);
#ifdef _WIN32
  gdiPlusInit();
  void* image = nullptr;
  int status = 1;
  if (gdiPlusGetBitmapFromFile(argv[2], &image) != 1) {
    std::fprintf(stderr, "qnutil image: cannot read %s\n", argv[2]);
  } else {
    gdiPlusSaveImage(image, argv[3], format);
    gdiPlusFreeImage(image);
    void* check = nullptr;
    if (gdiPlusGetBitmapFromFile(argv[3], &check) == 1 || format == 2) {
      status = 0;
      gdiPlusFreeImage(check);
    } else {
      std::fprintf(stderr, "qnutil image: cannot write %s\n", argv[3]);
    }
  }
  gdiPlusExit();
  return status;
#else
  std::fprintf(stderr, "qnutil image: GDI+ needs a Windows build of qnutil\n");
  return 1;
#endif
}

const RegisterCommand registered{kImage};

}  // namespace
}  // namespace qnutil_tool
