// qnutil b64: an image file (any file) as base64 text through jpgToXML.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_b64(int argc, char** argv);

const Command kB64{"b64", "print a file as base64 text (jpgToXML)", "b64 FILE", run_b64};

// jpgToXML leaves the final character to the caller: "=" when the file
// size is not a multiple of three, else the character of the last byte's
// low six bits.
char final_character(const std::string& path) {
  static const char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  const auto size = static_cast<long long>(in.tellg());
  if (size % 3 != 0) return '=';
  in.seekg(-1, std::ios::end);
  const int last = in.get();
  return kAlphabet[last & 63];
}

// The full text, or false when jpgToXML fails.
bool encode(const std::string& path, std::string& text) {
  unsigned int length = 0;
  if (jpgToXML(path.c_str(), nullptr, &length, 1) != 1) return false;
  std::vector<unsigned char> buffer(length + 1u, 0);
  if (jpgToXML(path.c_str(), buffer.data(), nullptr, 0) != 1) return false;
  text.assign(buffer.begin(), buffer.begin() + length);
  if (length > 0) text.back() = final_character(path);
  return true;
}

int run_b64(int argc, char** argv) {
  if (argc != 2) return usage_error(kB64);
  std::string text;
  if (!encode(argv[1], text)) {
    std::fprintf(stderr, "qnutil b64: cannot read %s\n", argv[1]);
    return 1;
  }
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return 0;
}

int demo_b64(const DemoContext& context) {
  const std::string picture = (context.samples / "encoding" / "swatch.jpg").string();
  std::string text;
  if (!encode(picture, text)) return 1;
  const auto out = context.output / "swatch.jpg.b64";
  std::ofstream(out, std::ios::binary) << text;
  std::printf("%s: %zu bytes as %zu base64 characters, written to %s\n", picture.c_str(),
              static_cast<std::size_t>(std::filesystem::file_size(picture)), text.size(),
              out.string().c_str());
  std::printf("<picture encoding=\"base64\">%.40s...</picture>\n", text.c_str());
  return 0;
}

const RegisterCommand registered{kB64};
const RegisterDemoStep demo{{50, "image file as base64 text", demo_b64}};

}  // namespace
}  // namespace qnutil_tool
