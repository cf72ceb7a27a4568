// CQnIniFile as MSVC hosts call it, and the MiniHandle objects of the
// Windows DLLs, which are such CQnIniFile objects: a host may call their
// members or delete them, as it could with the original library.
#include "ini/class_core.h"
#include "ini/msvc_abi_win32.h"

using qnutil::msvc::as_string;
using qnutil::msvc::FrameworkString;

CQnIniFile::CQnIniFile() : m_writable(0) { new (&m_path) FrameworkString(); }

CQnIniFile::CQnIniFile(const QnUtilMfcString& path, unsigned int writable) : m_writable(writable) {
  new (&m_path) FrameworkString(path);
}

CQnIniFile::CQnIniFile(const CQnIniFile& other) : m_writable(other.m_writable) {
  new (&m_path) FrameworkString(as_string(other.m_path));
}

CQnIniFile& CQnIniFile::operator=(const CQnIniFile& other) {
  as_string(m_path) = as_string(other.m_path);
  m_writable = other.m_writable;
  return *this;
}

CQnIniFile::~CQnIniFile() { as_string(m_path).~FrameworkString(); }

bool CQnIniFile::Open(const QnUtilMfcString&, unsigned int) { return true; }

void CQnIniFile::Close() {}

QnUtilMfcString CQnIniFile::FileReadString(const char* file, const char* section, const char* key) {
  char value[QNUTIL_INI_VALUE_BUFFER_SIZE];
  qnutil_ini_read_string(file, section, key, value);
  return FrameworkString(value);
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

QnUtilMfcString CQnIniFile::ReadString(const char* section, const char* key) {
  return FileReadString(as_string(m_path).c_str(), section, key);
}

int CQnIniFile::ReadInt(const char* section, const char* key) {
  return FileReadInt(as_string(m_path).c_str(), section, key);
}

double CQnIniFile::ReadDouble(const char* section, const char* key) {
  return FileReadDouble(as_string(m_path).c_str(), section, key);
}

bool CQnIniFile::WriteString(const char* section, const char* key, const char* value) {
  return FileWriteString(as_string(m_path).c_str(), section, key, value);
}

bool CQnIniFile::WriteInt(const char* section, const char* key, int value) {
  return FileWriteInt(as_string(m_path).c_str(), section, key, value);
}

bool CQnIniFile::WriteDouble(const char* section, const char* key, double value) {
  return FileWriteDouble(as_string(m_path).c_str(), section, key, value);
}

namespace {

// The host's compiler lays a CQnIniFile out as its vtable pointer, the path,
// then the mode; the mini functions reach the path that way, since the
// class offers no member for it.
const QnUtilMfcStringSlot& path_slot(const CQnIniFile* file) {
  static_assert(sizeof(CQnIniFile) == 3 * sizeof(void*), "vtable pointer, path, mode");
  return *reinterpret_cast<const QnUtilMfcStringSlot*>(reinterpret_cast<const char*>(file) +
                                                       sizeof(void*));
}

}  // namespace

extern "C" MiniHandle qnutil_mini_create(const char* path, unsigned writable) {
  const FrameworkString text(path);
  void* memory = qnutil::msvc::heap_allocate(sizeof(CQnIniFile));
  if (!memory) return nullptr;
  auto* file = new (memory) CQnIniFile(text, writable);
  if (text.c_str()[0] != path[0]) {  // the path's copy could not be allocated
    delete file;
    return nullptr;
  }
  return reinterpret_cast<MiniHandle>(file);
}

extern "C" const char* qnutil_mini_path(MiniHandle handle) {
  return as_string(path_slot(reinterpret_cast<const CQnIniFile*>(handle))).c_str();
}

extern "C" void qnutil_mini_destroy(MiniHandle handle) {
  delete reinterpret_cast<CQnIniFile*>(handle);
}
