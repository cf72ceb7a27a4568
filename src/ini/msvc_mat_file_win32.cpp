// CQnMatFile as MSVC hosts call it.
#include "ini/class_core.h"
#include "ini/msvc_abi_win32.h"

using qnutil::msvc::as_string;
using qnutil::msvc::FrameworkString;

namespace {

void assign_text(void* string, const char* text) {
  static_cast<FrameworkString*>(string)->assign(text);
}

}  // namespace

CQnMatFile::CQnMatFile() : m_loaded(0), m_material{} {
  new (&m_logName) FrameworkString();
  new (&m_testTexturePath) FrameworkString();
  new (&m_filePath) FrameworkString();
}

CQnMatFile::CQnMatFile(const QnUtilMfcString& path) : CQnMatFile() { Read(path); }

CQnMatFile::CQnMatFile(const CQnMatFile& other)
    : m_loaded(other.m_loaded), m_material(other.m_material) {
  new (&m_logName) FrameworkString(as_string(other.m_logName));
  new (&m_testTexturePath) FrameworkString(as_string(other.m_testTexturePath));
  new (&m_filePath) FrameworkString(as_string(other.m_filePath));
}

CQnMatFile& CQnMatFile::operator=(const CQnMatFile& other) {
  m_loaded = other.m_loaded;
  as_string(m_logName) = as_string(other.m_logName);
  as_string(m_testTexturePath) = as_string(other.m_testTexturePath);
  as_string(m_filePath) = as_string(other.m_filePath);
  m_material = other.m_material;
  return *this;
}

CQnMatFile::~CQnMatFile() {
  as_string(m_logName).~FrameworkString();
  as_string(m_testTexturePath).~FrameworkString();
  as_string(m_filePath).~FrameworkString();
}

int CQnMatFile::Read(const QnUtilMfcString& path) {
  const QnUtilMaterialStrings strings{assign_text, &m_logName, &m_testTexturePath, &m_filePath};
  return qnutil_material_read(path.c_str(), &m_loaded, &m_material, &strings);
}

int CQnMatFile::Write(const QnUtilMfcString& path) {
  return qnutil_material_write(path.c_str(), as_string(m_logName).c_str(),
                               as_string(m_testTexturePath).c_str(), &m_material);
}

int CQnMatFile::Write() { return Write(as_string(m_filePath)); }

matTyp* CQnMatFile::GetMaterialPtr() { return &m_material; }

int CQnMatFile::IsLoaded() { return m_loaded; }

void CQnMatFile::GetLogName(QnUtilMfcString& out) {
  if (as_string(m_logName).length() == 0) {
    qnutil_material_name_of_path(as_string(m_filePath).c_str(), assign_text, &m_logName);
  }
  out = as_string(m_logName);
}

void CQnMatFile::SetLogName(const QnUtilMfcString& name) { as_string(m_logName) = name; }

void CQnMatFile::GetTestTexturePath(QnUtilMfcString& out) { out = as_string(m_testTexturePath); }

void CQnMatFile::SetTestTexturePath(const QnUtilMfcString& path) {
  as_string(m_testTexturePath) = path;
}
