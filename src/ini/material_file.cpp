// The material file behind both forms of CQnMatFile.
#include <cmath>
#include <cstdlib>
#include <string>

#include "frame/export_guard.h"
#include "frame/text_format.h"
#include "ini/class_core.h"
#include "numeric/multibyte_text.h"
#include "platform/file_replacement.h"
#include "platform/folder_lock.h"
#include "ini/profile_access.h"
#include "platform/settings_file.h"
#include "qnutil/files.h"

namespace {

constexpr char kMaterialSection[] = "Material";
constexpr char kNameKey[] = "Name";
constexpr unsigned kValueBufferSize = 256;

class MaterialFile {
 public:
  explicit MaterialFile(const char* path) : path_(path) {}

  // The value, or "" for an empty value and for a missing key whose
  // default is "".
  std::string read(const std::string& section, const char* key, const char* fallback) const {
    char buffer[kValueBufferSize];
    qnutil::ini::read_profile_string(section.c_str(), key, fallback, buffer, sizeof buffer, path_);
    return buffer;
  }

  bool write(const std::string& section, const char* key, const char* value) const {
    return qnutil::ini::write_profile_string(section.c_str(), key, value, path_);
  }

 private:
  const char* path_;
};

float to_float(const std::string& text) {
  return static_cast<float>(std::strtod(text.c_str(), nullptr));
}

// Three comma-separated numbers into `out`; nothing is stored unless the
// text has two commas. The 0-255 form (`integers`) parses unsigned decimal
// integers and divides them by 255.
void parse_three(const std::string& text, float (&out)[3], bool integers) {
  std::string copy = text;
  const char* parts[3] = {copy.c_str(), nullptr, nullptr};
  int commas = 0;
  for (std::size_t i = 0; i < copy.size() && commas < 2;
       i += qnutil::numeric::character_length(&copy[i])) {
    if (copy[i] != ',') continue;
    copy[i] = '\0';
    parts[++commas] = copy.c_str() + i + 1;
  }
  if (commas < 2) return;
  for (int i = 0; i < 3; ++i) {
    out[i] = integers ? static_cast<float>(std::strtoul(parts[i], nullptr, 10) / 255.0)
                      : static_cast<float>(std::strtod(parts[i], nullptr));
  }
}

// The derived exponent fields: x = Oe^1.5 in single precision.
void derive_exponent(double oe, matTyp& material) {
  if (!(oe > 0.1)) {
    material.oeInvPow = 0.0f;
    return;
  }
  const float e = static_cast<float>(oe);
  const float x = std::sqrt(e) * e;
  material.oeInvPow = -1.0f / x;
  material.oePow = x;
  material.oeOffset = x - 1.0f / (1.0f + 1.0f / x);
}

int read_material(const char* path, int& loaded, matTyp& record,
                  const QnUtilMaterialStrings& strings) {
  strings.assign(strings.file_path, path);
  if (!qnutil::platform::can_read_file(path)) {
    strings.assign(strings.file_path, "");
    loaded = 0;
    return 0;
  }
  const MaterialFile file(path);
  const std::string name = file.read(kMaterialSection, kNameKey, "");
  if (name.empty()) return 0;
  strings.assign(strings.log_name, name.c_str());

  const std::string kdiffus = file.read(name, "kdiffus", "0.4");
  if (kdiffus.empty()) return 0;
  record = matTyp{};
  record.kdiffus = to_float(kdiffus);
  const std::string kambient = file.read(name, "kambient", "0.4");
  if (kambient.empty()) return 0;
  record.kambient = to_float(kambient);
  if (const std::string value = file.read(name, "kspiegel", "0.4"); !value.empty()) {
    record.kspiegel = to_float(value);
  }
  if (const std::string value = file.read(name, "alpha", "0.4"); !value.empty()) {
    record.alpha = to_float(value);
  }
  if (const std::string value = file.read(name, "Oe", "30.0"); !value.empty()) {
    const double oe = std::strtod(value.c_str(), nullptr);
    record.Oe = static_cast<float>(oe);
    derive_exponent(oe, record);
  }
  if (const std::string value = file.read(name, "Bits", ""); !value.empty()) {
    record.Bits = static_cast<std::uint32_t>(std::strtoul(value.c_str(), nullptr, 10));
  }
  if (const std::string value = file.read(name, "RGBDiffus", "0.4,0.4,0.4"); !value.empty()) {
    parse_three(value, record.RGBDiffus, false);
  } else if (const std::string bytes = file.read(name, "RGBDiffus255", "102,102,102");
             !bytes.empty()) {
    parse_three(bytes, record.RGBDiffus, true);
  }
  // The specular colour has no 0-255 key: its fallback reads "RGBSpiegel"
  // again, which is present and empty by then, so the colour stays 0.
  if (const std::string value = file.read(name, "RGBSpiegel", "0.5,0.5,0.5"); !value.empty()) {
    parse_three(value, record.RGBSpiegel, false);
  } else if (const std::string bytes = file.read(name, "RGBSpiegel", "128,128,128");
             !bytes.empty()) {
    parse_three(bytes, record.RGBSpiegel, true);
  }
  strings.assign(strings.test_texture_path, file.read(name, "Testtextur", "").c_str());
  loaded = 1;
  return 1;
}

// All or nothing: the writes go to a staged copy of the file, which takes
// the file's place only when every one of them succeeded. Other writers of
// the folder wait meanwhile, so that none of their changes is lost.
int write_material(const char* path, const std::string& name, const char* test_texture_path,
                   const matTyp& m) {
  using qnutil::frame::format_text;
  if (!*path || !qnutil::platform::can_write_file(path)) return 0;
  const qnutil::platform::FolderLock lock(path);
  qnutil::platform::FileReplacement replacement(path);
  const std::string staged = replacement.opened() ? replacement.stage() : std::string();
  if (staged.empty()) return 0;
  const MaterialFile file(staged.c_str());
  bool written = true;
  auto write = [&](const std::string& section, const char* key, const std::string& value) {
    written = file.write(section, key, value.c_str()) && written;
  };
  const std::string old_name = file.read(kMaterialSection, kNameKey, "");
  if (!old_name.empty() && old_name != name && !file.read(old_name, "kdiffus", "").empty()) {
    written = file.write(old_name, nullptr, nullptr) && written;
  }
  write(kMaterialSection, kNameKey, name);
  auto number = [](float value) { return format_text("%lg", static_cast<double>(value)); };
  auto colour = [](const float(&rgb)[3]) {
    return format_text("%lg,%lg,%lg", static_cast<double>(rgb[0]), static_cast<double>(rgb[1]),
                       static_cast<double>(rgb[2]));
  };
  write(name, "kdiffus", number(m.kdiffus));
  write(name, "kambient", number(m.kambient));
  write(name, "kspiegel", number(m.kspiegel));
  write(name, "alpha", number(m.alpha));
  write(name, "Oe", number(m.Oe));
  write(name, "Bits", format_text("%u", static_cast<unsigned>(m.Bits & ~1u)));
  write(name, "RGBDiffus", colour(m.RGBDiffus));
  write(name, "RGBSpiegel", colour(m.RGBSpiegel));
  write(name, "Testtextur", test_texture_path);
  qnutil::ini::flush_profile_cache(staged.c_str());
  const bool saved = written && replacement.commit();
  qnutil::ini::flush_profile_cache(path);
  return saved ? 1 : 0;
}

}  // namespace

extern "C" int qnutil_material_read(const char* path, int* loaded, matTyp* record,
                                    const QnUtilMaterialStrings* strings) {
  return qnutil::frame::guard_export(
      0, [&] { return read_material(path, *loaded, *record, *strings); });
}

extern "C" int qnutil_material_write(const char* path, const char* log_name,
                                     const char* test_texture_path, const matTyp* record) {
  return qnutil::frame::guard_export(
      0, [&] { return write_material(path, log_name, test_texture_path, *record); });
}

extern "C" void qnutil_material_name_of_path(const char* file_path, QnUtilAssignText assign,
                                             void* string) {
  char drive[QNUTIL_DRIVE_SIZE], folder[QNUTIL_FOLDER_SIZE], name[QNUTIL_NAME_SIZE];
  QnUtil_Divide(file_path, drive, folder, name);
  const int dot = QnUtil_GetExtensionPos(name);
  if (dot >= 0) name[dot] = '\0';
  assign(string, name);
}
