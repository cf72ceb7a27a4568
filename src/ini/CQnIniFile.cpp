#include "qnutil/CQnIniFile.h"

#include "ini/ini_access.h"

CQnIniFile::CQnIniFile() : m_writable(0) {}

CQnIniFile::CQnIniFile(const std::string& path, unsigned int writable)
    : m_path(path), m_writable(writable) {}

CQnIniFile::CQnIniFile(const CQnIniFile& other) = default;
CQnIniFile& CQnIniFile::operator=(const CQnIniFile& other) = default;
CQnIniFile::~CQnIniFile() = default;

bool CQnIniFile::Open(const std::string&, unsigned int) { return true; }

void CQnIniFile::Close() {}

std::string CQnIniFile::FileReadString(const char* file, const char* section, const char* key) {
  return qnutil::ini::read_value_or_marker(file, section, key);
}

int CQnIniFile::FileReadInt(const char* file, const char* section, const char* key) {
  return qnutil_ini_read_int(file, section, key);
}

double CQnIniFile::FileReadDouble(const char* file, const char* section, const char* key) {
  return qnutil_ini_read_double(file, section, key);
}

bool CQnIniFile::FileWriteString(const char* file, const char* section, const char* key,
                                 const char* value) {
  return qnutil_ini_write_string(file, section, key, value) != 0;
}

bool CQnIniFile::FileWriteInt(const char* file, const char* section, const char* key, int value) {
  return qnutil_ini_write_int(file, section, key, value) != 0;
}

bool CQnIniFile::FileWriteDouble(const char* file, const char* section, const char* key,
                                 double value) {
  return qnutil_ini_write_double(file, section, key, value) != 0;
}

std::string CQnIniFile::ReadString(const char* section, const char* key) const {
  return FileReadString(m_path.c_str(), section, key);
}

int CQnIniFile::ReadInt(const char* section, const char* key) const {
  return FileReadInt(m_path.c_str(), section, key);
}

double CQnIniFile::ReadDouble(const char* section, const char* key) const {
  return FileReadDouble(m_path.c_str(), section, key);
}

bool CQnIniFile::WriteString(const char* section, const char* key, const char* value) const {
  return FileWriteString(m_path.c_str(), section, key, value);
}

bool CQnIniFile::WriteInt(const char* section, const char* key, int value) const {
  return FileWriteInt(m_path.c_str(), section, key, value);
}

bool CQnIniFile::WriteDouble(const char* section, const char* key, double value) const {
  return FileWriteDouble(m_path.c_str(), section, key, value);
}
