// qnutil utf8: the UTF-8 conversions of the text helpers.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_utf8(int argc, char** argv);

const Command kUtf8{"utf8", "convert TEXT from UTF-8 to 8-bit text or from ANSI text to UTF-8",
                    "utf8 from|to TEXT [--hex]\n"
                    "  from TEXT  UTF-8 to 8-bit text (the low byte of each UTF-16 unit)\n"
                    "  to TEXT    ANSI text (Windows-1252 on POSIX) to UTF-8\n"
                    "  --hex      print the result's bytes in hexadecimal",
                    run_utf8};

void print(const std::string& bytes, bool hex) {
  if (!hex) {
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
  } else {
    for (std::size_t i = 0; i < bytes.size(); ++i)
      std::printf("%s%02X", i ? " " : "", static_cast<unsigned char>(bytes[i]));
  }
  std::fputc('\n', stdout);
}

int run_utf8(int argc, char** argv) {
  const bool hex = argc == 4 && std::strcmp(argv[3], "--hex") == 0;
  if (argc != 3 && !hex) return usage_error(kUtf8);
  const std::string direction = argv[1];
  const char* text = argv[2];
  if (direction != "from" && direction != "to") return usage_error(kUtf8);
  // Room for the larger of both results: 3 bytes per input byte.
  std::vector<char> out(std::strlen(text) * 3 + 1, '\0');
  const int ok =
      direction == "from" ? ConvertFromUTF8(text, out.data()) : ConvertToUTF8(text, out.data());
  if (ok != 1) {
    std::fprintf(stderr, "qnutil utf8: nothing to convert\n");
    return 1;
  }
  print(out.data(), hex);
  return 0;
}

int demo_text(const DemoContext&) {
  char ansi[64];
  if (ConvertFromUTF8("Gr\xC3\xB6\xC3\x9F"
                      "e \xE2\x82\xAC",
                      ansi) != 1)
    return 1;
  std::printf(
      "UTF-8 \"Gr\xC3\xB6\xC3\x9F"
      "e \xE2\x82\xAC\" to 8-bit: ");
  print(ansi, true);
  char utf8[64];
  if (ConvertToUTF8("K\xFC"
                    "che",
                    utf8) != 1)
    return 1;
  std::printf("8-bit \"K\\xFCche\" to UTF-8: %s\n", utf8);
  char padded[] = "  wall 24  ";
  std::printf("QnUtil_StrRTrim(\"  wall 24  \") = \"%s\" (trims the start)\n",
              QnUtil_StrRTrim(padded));
  std::printf("QnUtil_StrTrim gives \"%s\"\n", QnUtil_StrTrim(padded));
  std::printf("QnUtil_StrIPos(\"wall@2@height\", \"@height\") = %d\n",
              QnUtil_StrIPos("wall@2@height", "@height"));
  return 0;
}

const RegisterCommand registered{kUtf8};
const RegisterDemoStep demo{{40, "text helpers", demo_text}};

}  // namespace
}  // namespace qnutil_tool
