#include "qnutil/CQnMatFile.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/text_format.h"
#include "ini/multibyte_copy.h"
#include "platform/profile.h"
#include "platform/settings_file.h"
#include "qnutil/files.h"

namespace {

constexpr char kMaterialSection[] = "Material";
constexpr char kNameKey[] = "Name";
constexpr unsigned kValueBufferSize = 256;

class MaterialFile {
 public:
  explicit MaterialFile(const std::string& path) : path_(path) {}

  // The value, or "" for an empty value and for a missing key whose
  // default is "".
  std::string read(const std::string& section, const char* key, const char* fallback) const {
    char buffer[kValueBufferSize];
    qnutil::platform::read_profile_string(section.c_str(), key, fallback, buffer, sizeof buffer,
                                          path_.c_str());
    return buffer;
  }

  void write(const std::string& section, const char* key, const char* value) const {
    qnutil::platform::write_profile_string(section.c_str(), key, value, path_.c_str());
  }

 private:
  const std::string& path_;
};

float to_float(const std::string& text) { return static_cast<float>(std::strtod(text.c_str(), nullptr)); }

// Three comma-separated numbers into `out`; nothing is stored unless the
// text has two commas. The 0-255 form (`integers`) parses unsigned decimal
// integers and divides them by 255.
void parse_three(const std::string& text, float (&out)[3], bool integers) {
  std::string copy = text;
  const char* parts[3] = {copy.c_str(), nullptr, nullptr};
  int commas = 0;
  for (std::size_t i = 0; i < copy.size() && commas < 2; i += qnutil::ini::character_length(&copy[i])) {
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

}  // namespace

CQnMatFile::CQnMatFile() : m_loaded(0), m_material{} {}

CQnMatFile::CQnMatFile(const std::string& path) : CQnMatFile() { Read(path); }

CQnMatFile::CQnMatFile(const CQnMatFile& other) = default;
CQnMatFile& CQnMatFile::operator=(const CQnMatFile& other) = default;
CQnMatFile::~CQnMatFile() = default;

int CQnMatFile::Read(const std::string& path) {
  m_filePath = path;
  if (!qnutil::platform::can_read_file(path.c_str())) {
    m_filePath.clear();
    m_loaded = 0;
    return 0;
  }
  const MaterialFile file(m_filePath);
  const std::string name = file.read(kMaterialSection, kNameKey, "");
  if (name.empty()) return 0;
  m_logName = name;

  const std::string kdiffus = file.read(name, "kdiffus", "0.4");
  if (kdiffus.empty()) return 0;
  m_material = matTyp{};
  m_material.kdiffus = to_float(kdiffus);
  const std::string kambient = file.read(name, "kambient", "0.4");
  if (kambient.empty()) return 0;
  m_material.kambient = to_float(kambient);
  if (const std::string value = file.read(name, "kspiegel", "0.4"); !value.empty()) {
    m_material.kspiegel = to_float(value);
  }
  if (const std::string value = file.read(name, "alpha", "0.4"); !value.empty()) {
    m_material.alpha = to_float(value);
  }
  if (const std::string value = file.read(name, "Oe", "30.0"); !value.empty()) {
    const double oe = std::strtod(value.c_str(), nullptr);
    m_material.Oe = static_cast<float>(oe);
    derive_exponent(oe, m_material);
  }
  if (const std::string value = file.read(name, "Bits", ""); !value.empty()) {
    m_material.Bits = static_cast<std::uint32_t>(std::strtoul(value.c_str(), nullptr, 10));
  }
  if (const std::string value = file.read(name, "RGBDiffus", "0.4,0.4,0.4"); !value.empty()) {
    parse_three(value, m_material.RGBDiffus, false);
  } else if (const std::string bytes = file.read(name, "RGBDiffus255", "102,102,102"); !bytes.empty()) {
    parse_three(bytes, m_material.RGBDiffus, true);
  }
  // The specular colour has no 0-255 key: its fallback reads "RGBSpiegel"
  // again, which is present and empty by then, so the colour stays 0.
  if (const std::string value = file.read(name, "RGBSpiegel", "0.5,0.5,0.5"); !value.empty()) {
    parse_three(value, m_material.RGBSpiegel, false);
  } else if (const std::string bytes = file.read(name, "RGBSpiegel", "128,128,128"); !bytes.empty()) {
    parse_three(bytes, m_material.RGBSpiegel, true);
  }
  m_testTexturePath = file.read(name, "Testtextur", "");
  m_loaded = 1;
  return 1;
}

int CQnMatFile::Write(const std::string& path) {
  using qnutil::frame::format_text;
  if (path.empty() || !qnutil::platform::can_write_file(path.c_str())) return 0;
  const MaterialFile file(path);
  const std::string old_name = file.read(kMaterialSection, kNameKey, "");
  if (!old_name.empty() && old_name != m_logName && !file.read(old_name, "kdiffus", "").empty()) {
    file.write(old_name, nullptr, nullptr);
  }
  file.write(kMaterialSection, kNameKey, m_logName.c_str());
  const matTyp& m = m_material;
  auto number = [](float value) { return format_text("%lg", static_cast<double>(value)); };
  auto colour = [](const float (&rgb)[3]) {
    return format_text("%lg,%lg,%lg", static_cast<double>(rgb[0]), static_cast<double>(rgb[1]),
                       static_cast<double>(rgb[2]));
  };
  file.write(m_logName, "kdiffus", number(m.kdiffus).c_str());
  file.write(m_logName, "kambient", number(m.kambient).c_str());
  file.write(m_logName, "kspiegel", number(m.kspiegel).c_str());
  file.write(m_logName, "alpha", number(m.alpha).c_str());
  file.write(m_logName, "Oe", number(m.Oe).c_str());
  file.write(m_logName, "Bits", format_text("%u", static_cast<unsigned>(m.Bits & ~1u)).c_str());
  file.write(m_logName, "RGBDiffus", colour(m.RGBDiffus).c_str());
  file.write(m_logName, "RGBSpiegel", colour(m.RGBSpiegel).c_str());
  file.write(m_logName, "Testtextur", m_testTexturePath.c_str());
  qnutil::platform::flush_profile_cache(path.c_str());
  return 1;
}

int CQnMatFile::Write() { return Write(m_filePath); }

matTyp* CQnMatFile::GetMaterialPtr() { return &m_material; }

int CQnMatFile::IsLoaded() const { return m_loaded; }

void CQnMatFile::GetLogName(std::string& out) {
  if (m_logName.empty()) {
    char drive[QNUTIL_DRIVE_SIZE], folder[QNUTIL_FOLDER_SIZE], name[QNUTIL_NAME_SIZE];
    QnUtil_Divide(m_filePath.c_str(), drive, folder, name);
    const int dot = QnUtil_GetExtensionPos(name);
    if (dot >= 0) name[dot] = '\0';
    m_logName = name;
  }
  out = m_logName;
}

void CQnMatFile::SetLogName(const std::string& name) { m_logName = name; }

void CQnMatFile::GetTestTexturePath(std::string& out) const { out = m_testTexturePath; }

void CQnMatFile::SetTestTexturePath(const std::string& path) { m_testTexturePath = path; }
