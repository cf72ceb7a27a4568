#include "qnutil/CQnMatFile.h"

#include "ini/class_core.h"

namespace {

void assign_text(void* string, const char* text) { *static_cast<std::string*>(string) = text; }

}  // namespace

CQnMatFile::CQnMatFile() : m_loaded(0), m_material{} {}

CQnMatFile::CQnMatFile(const std::string& path) : CQnMatFile() { Read(path); }

CQnMatFile::CQnMatFile(const CQnMatFile& other) = default;
CQnMatFile& CQnMatFile::operator=(const CQnMatFile& other) = default;
CQnMatFile::~CQnMatFile() = default;

int CQnMatFile::Read(const std::string& path) {
  const QnUtilMaterialStrings strings{assign_text, &m_logName, &m_testTexturePath, &m_filePath};
  return qnutil_material_read(path.c_str(), &m_loaded, &m_material, &strings);
}

int CQnMatFile::Write(const std::string& path) {
  return qnutil_material_write(path.c_str(), m_logName.c_str(), m_testTexturePath.c_str(),
                               &m_material);
}

int CQnMatFile::Write() { return Write(m_filePath); }

matTyp* CQnMatFile::GetMaterialPtr() { return &m_material; }

int CQnMatFile::IsLoaded() const { return m_loaded; }

void CQnMatFile::GetLogName(std::string& out) {
  if (m_logName.empty()) qnutil_material_name_of_path(m_filePath.c_str(), assign_text, &m_logName);
  out = m_logName;
}

void CQnMatFile::SetLogName(const std::string& name) { m_logName = name; }

void CQnMatFile::GetTestTexturePath(std::string& out) const { out = m_testTexturePath; }

void CQnMatFile::SetTestTexturePath(const std::string& path) { m_testTexturePath = path; }
