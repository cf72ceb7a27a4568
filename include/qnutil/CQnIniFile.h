/*
 * CQnIniFile: an INI file bound to a path, read and written through the
 * platform's private-profile functions (the library's own engine with the
 * same results on POSIX). C++ only; the C interface is mini_* in ini.h.
 *
 * Every string read asks for the marker default "_TheDefault_", so a
 * missing key (or section, or file) reads as that text while a key present
 * with an empty value reads as "". A value that literally holds the marker
 * therefore reads as missing.
 */
#ifndef QNUTIL_CQNINIFILE_H
#define QNUTIL_CQNINIFILE_H

#ifdef _MSC_VER
#error "MSVC hosts declare the classes with the framework's CString: include mfc_classes_win32.h"
#endif

#include <string>

#include "common.h"

/** An INI file bound to a path; see the notes at the top of this header. */
class QNUTIL_API CQnIniFile {
 public:
  /** Empty path, opened for reading. */
  CQnIniFile();
  /** Bound to path; writable is 1 for writing, 0 for reading (kept only). */
  CQnIniFile(const std::string& path, unsigned int writable);
  /** Copies the bound path and mode. */
  CQnIniFile(const CQnIniFile& other);
  /** Takes over the bound path and mode of other. */
  CQnIniFile& operator=(const CQnIniFile& other);
  virtual ~CQnIniFile();

  /** Returns true and changes nothing: the object is bound at construction. */
  bool Open(const std::string& path, unsigned int mode);
  /** Does nothing. */
  void Close();

  /** The value of key in section (values longer than 1023 bytes are cut):
   *  "" for an empty value, "_TheDefault_" when the key is missing. */
  static std::string FileReadString(const char* file, const char* section, const char* key);
  /** The value's leading decimal integer; 0 when missing or empty. */
  static int FileReadInt(const char* file, const char* section, const char* key);
  /** The value's leading number (C strtod; 0.0 when there is none);
   *  positive infinity when the key is missing or its value empty. */
  static double FileReadDouble(const char* file, const char* section, const char* key);
  /** Writes value (verbatim) under key; a null value deletes the key, a
   *  null key the whole section. True on success. */
  static bool FileWriteString(const char* file, const char* section, const char* key,
                              const char* value);
  /** Writes the value formatted "%ld". */
  static bool FileWriteInt(const char* file, const char* section, const char* key, int value);
  /** Writes the value formatted "%lg" (six significant digits). */
  static bool FileWriteDouble(const char* file, const char* section, const char* key, double value);

  /** The static functions of the same kind on the bound path. */
  std::string ReadString(const char* section, const char* key) const;
  /** FileReadInt on the bound path. */
  int ReadInt(const char* section, const char* key) const;
  /** FileReadDouble on the bound path. */
  double ReadDouble(const char* section, const char* key) const;
  /** FileWriteString on the bound path. */
  bool WriteString(const char* section, const char* key, const char* value) const;
  /** FileWriteInt on the bound path. */
  bool WriteInt(const char* section, const char* key, int value) const;
  /** FileWriteDouble on the bound path. */
  bool WriteDouble(const char* section, const char* key, double value) const;

 private:
  std::string m_path;
  // 1 when bound for writing; kept and copied, never consulted.
  [[maybe_unused]] unsigned int m_writable;
};

#endif /* QNUTIL_CQNINIFILE_H */
