// qnutil ini / mat: INI values and material files; plus a demo of INI
// access, style records and a material.
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string>

#include "qnutil/qnutil.h"
#include "failure.h"
#include "json_output.h"
#include "registry.h"

namespace qnutil_tool {
namespace {

int run_ini(int argc, char** argv);
int run_mat(int argc, char** argv);

const Command kIni{"ini", "read or write one value of an INI file",
                   "ini get FILE SECTION KEY | ini set FILE SECTION KEY VALUE\n"
                   "  get prints the value (quotes and surrounding blanks removed) and exits\n"
                   "  with 1 when the key is missing; set writes VALUE as it stands,\n"
                   "  creating the file, section or key as needed.",
                   run_ini};

const Command kMat{"mat", "show or change a material file",
                   "mat show FILE [--json] | mat set FILE KEY VALUE\n"
                   "  show prints every field of the loaded material, derived ones included.\n"
                   "  KEY is one of Name, kdiffus, kambient, kspiegel, alpha, Oe, Bits,\n"
                   "  RGBDiffus, RGBSpiegel (VALUE \"r,g,b\", 0 to 1) or Testtextur.",
                   run_mat};

constexpr char kMissing[] = "_TheDefault_";

int run_ini(int argc, char** argv) {
  if (argc == 5 && std::strcmp(argv[1], "get") == 0) {
    // The profile functions read a missing or unreadable file as empty.
    if (const std::string problem = read_problem(argv[2]); !problem.empty()) {
      return fail("ini", argv[2], problem);
    }
    const std::string value = CQnIniFile::FileReadString(argv[2], argv[3], argv[4]);
    if (value == kMissing) {
      return fail("ini", argv[2], std::string("no key ") + argv[4] + " in section " + argv[3]);
    }
    std::printf("%s\n", value.c_str());
    return 0;
  }
  if (argc == 6 && std::strcmp(argv[1], "set") == 0) {
    if (CQnIniFile::FileWriteString(argv[2], argv[3], argv[4], argv[5])) return 0;
    return fail("ini", argv[2], write_problem(argv[2]));
  }
  return usage_error(kIni);
}

void print_material(CQnMatFile& material) {
  std::string name, texture;
  material.GetLogName(name);
  material.GetTestTexturePath(texture);
  const matTyp& m = *material.GetMaterialPtr();
  std::printf("Name        %s\n", name.c_str());
  std::printf("RGBDiffus   %g, %g, %g\n", m.RGBDiffus[0], m.RGBDiffus[1], m.RGBDiffus[2]);
  std::printf("RGBSpiegel  %g, %g, %g\n", m.RGBSpiegel[0], m.RGBSpiegel[1], m.RGBSpiegel[2]);
  std::printf("alpha       %g\nkambient    %g\nkdiffus     %g\nkspiegel    %g\nOe          %g\n",
              m.alpha, m.kambient, m.kdiffus, m.kspiegel, m.Oe);
  std::printf(
      "oeInvPow    %g   (derived)\noeOffset    %g   (derived)\noePow       %g   (derived)\n",
      m.oeInvPow, m.oeOffset, m.oePow);
  std::printf("reserved    %u\nBits        %u\nTesttextur  %s\n", static_cast<unsigned>(m.reserved),
              static_cast<unsigned>(m.Bits), texture.c_str());
}

std::string json_colour(const float (&rgb)[3]) {
  return "[" + json_number(rgb[0]) + ", " + json_number(rgb[1]) + ", " + json_number(rgb[2]) + "]";
}

void print_material_json(CQnMatFile& material) {
  std::string name, texture;
  material.GetLogName(name);
  material.GetTestTexturePath(texture);
  const matTyp& m = *material.GetMaterialPtr();
  std::printf(
      "{\"Name\": %s, \"RGBDiffus\": %s, \"RGBSpiegel\": %s, \"alpha\": %s, \"kambient\": %s,"
      " \"kdiffus\": %s, \"kspiegel\": %s, \"Oe\": %s, \"oeInvPow\": %s, \"oeOffset\": %s,"
      " \"oePow\": %s, \"reserved\": %u, \"Bits\": %u, \"Testtextur\": %s}\n",
      json_string(name.c_str()).c_str(), json_colour(m.RGBDiffus).c_str(),
      json_colour(m.RGBSpiegel).c_str(), json_number(m.alpha).c_str(),
      json_number(m.kambient).c_str(), json_number(m.kdiffus).c_str(),
      json_number(m.kspiegel).c_str(), json_number(m.Oe).c_str(), json_number(m.oeInvPow).c_str(),
      json_number(m.oeOffset).c_str(), json_number(m.oePow).c_str(),
      static_cast<unsigned>(m.reserved), static_cast<unsigned>(m.Bits),
      json_string(texture.c_str()).c_str());
}

// A finite number within [low, high], the whole text.
bool parse_number(const char* text, float low, float high, float& out) {
  char* end = nullptr;
  const float value = std::strtof(text, &end);
  if (end == text || *end != '\0' || !std::isfinite(value) || value < low || value > high) {
    return false;
  }
  out = value;
  return true;
}

bool parse_colour(const char* text, float (&rgb)[3]) {
  float parsed[3];
  std::string parts = text;
  for (int i = 0; i < 3; ++i) {
    const std::size_t comma = parts.find(',');
    if ((comma == std::string::npos) != (i == 2)) return false;
    if (!parse_number(parts.substr(0, comma).c_str(), 0.0f, 1.0f, parsed[i])) return false;
    parts.erase(0, comma == std::string::npos ? parts.size() : comma + 1);
  }
  std::copy(parsed, parsed + 3, rgb);
  return true;
}

// Decimal digits only (no sign), at most 4294967295.
bool parse_bits(const char* text, std::uint32_t& out) {
  if (!*text || std::strspn(text, "0123456789") != std::strlen(text)) return false;
  errno = 0;
  const unsigned long long value = std::strtoull(text, nullptr, 10);
  if (errno == ERANGE || value > 0xFFFFFFFFull) return false;
  out = static_cast<std::uint32_t>(value);
  return true;
}

// Sets one field by its file key; "" on success, else why not.
std::string set_field(CQnMatFile& material, const char* key, const char* value) {
  matTyp& m = *material.GetMaterialPtr();
  struct Number {
    const char* key;
    float* field;
  };
  for (const Number& number :
       {Number{"kdiffus", &m.kdiffus}, Number{"kambient", &m.kambient},
        Number{"kspiegel", &m.kspiegel}, Number{"alpha", &m.alpha}, Number{"Oe", &m.Oe}}) {
    if (std::strcmp(key, number.key) != 0) continue;
    const float limit = std::numeric_limits<float>::max();
    return parse_number(value, -limit, limit, *number.field) ? "" : "is not a finite number";
  }
  if (std::strcmp(key, "Bits") == 0) {
    return parse_bits(value, m.Bits) ? "" : "is not an unsigned 32-bit integer (0 to 4294967295)";
  }
  if (std::strcmp(key, "RGBDiffus") == 0 || std::strcmp(key, "RGBSpiegel") == 0) {
    return parse_colour(value, key[3] == 'D' ? m.RGBDiffus : m.RGBSpiegel)
               ? ""
               : "is not three numbers from 0 to 1, comma-separated";
  }
  if (std::strcmp(key, "Name") == 0) {
    if (!*value) return "is empty: a material needs a name";
    material.SetLogName(value);
    return "";
  }
  if (std::strcmp(key, "Testtextur") == 0) {
    material.SetTestTexturePath(value);
    return "";
  }
  return "is no material key";
}

int run_mat(int argc, char** argv) {
  const bool as_json = take_json_flag(argc, argv);
  const bool show = argc == 3 && std::strcmp(argv[1], "show") == 0;
  const bool set = argc == 5 && std::strcmp(argv[1], "set") == 0;
  if ((!show && !set) || (as_json && !show)) return usage_error(kMat);
  if (const std::string problem = read_problem(argv[2]); !problem.empty()) {
    return fail("mat", argv[2], problem);
  }
  CQnMatFile material(argv[2]);
  if (!material.IsLoaded()) {
    return fail("mat", argv[2], "no material (it needs a Name, \"kdiffus\" and \"kambient\")");
  }
  if (show) {
    if (as_json)
      print_material_json(material);
    else
      print_material(material);
    return 0;
  }
  if (const std::string problem = set_field(material, argv[3], argv[4]); !problem.empty()) {
    return fail("mat", argv[2], std::string(argv[3]) + " " + argv[4] + " " + problem);
  }
  if (material.Write() == 1) return 0;
  return fail("mat", argv[2], write_problem(argv[2]));
}

int demo_ini(const DemoContext& context) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path drawing = context.output / "drawing.ini";
  const fs::path glass = context.output / "glass.mat";
  fs::copy_file(context.samples / "ini" / "drawing.ini", drawing,
                fs::copy_options::overwrite_existing, error);
  fs::copy_file(context.samples / "ini" / "glass.mat", glass, fs::copy_options::overwrite_existing,
                error);
  if (error) return 1;

  MiniHandle ini = mini_open_ex(drawing.string().c_str(), 0);
  if (!ini) return 1;
  double zoom = 0, layers[8];
  int count = 8;
  char grid[16];
  unsigned int length = sizeof grid - 1;
  mini_read_double(ini, "View", "Zoom", &zoom);
  mini_read_string(ini, "view", "GRID", grid, &length);
  mini_read_doubles(ini, "View", "Layers", layers, &count);
  std::printf("View: Zoom %g, Grid \"%s\", %d layers\n", zoom, grid, count);
  FillStyleRec wall{};
  mini_read_fillstyle(ini, "Styles", "Wall", &wall);
  std::printf("Wall fill: style %u, colour 0x%06x\n", wall.style,
              static_cast<unsigned>(wall.color));
  const PenStyleRec pen{2, 0.25f, 0x0000ff};
  const double offsets[] = {0.5, 1.0, -2.75};
  mini_write_penstyle(ini, "Styles", "Outline", &pen);
  mini_write_doubles(ini, "View", "Offsets", offsets, 3);
  mini_close(&ini);
  std::printf("After writing a pen style and a number list, %s holds:\n", drawing.string().c_str());
  std::fflush(stdout);
  std::FILE* file = std::fopen(drawing.string().c_str(), "rb");
  if (!file) return 1;
  for (int c; (c = std::fgetc(file)) != EOF;) {
    if (c != '\r') std::putchar(c);
  }
  std::fclose(file);

  CQnMatFile material(glass.string());
  std::printf("\nMaterial %s:\n", glass.string().c_str());
  print_material(material);
  return material.IsLoaded() ? 0 : 1;
}

const RegisterCommand registered_ini{kIni};
const RegisterCommand registered_mat{kMat};
const RegisterDemoStep demo{{35, "INI values, style records and a material", demo_ini}};

}  // namespace
}  // namespace qnutil_tool
