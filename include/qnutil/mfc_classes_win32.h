/*
 * The C++ exports of QnUtil.dll as a host built with MSVC and the
 * Microsoft application framework (MFC in a shared DLL, multi-byte
 * strings) sees them: CQnIniFile, CQnMatFile and gdiPlusPrintImage, with
 * MSVC decorations, calling conventions and object layouts, and the
 * framework's CString wherever they take or give a string. Both Windows
 * DLLs (i686 and x86_64) export them; QnUtil.lib links them.
 *
 * Include <afx.h> first in an MFC host: the classes then take its CStringA
 * (which is CString in a multi-byte build). Without <afx.h> this header
 * names the same type, ATL::CStringT<char, StrTraitMFC_DLL<char,
 * ATL::ChTraitsCRT<char>>>, so that the decorations still match; a host
 * without the framework must then define that class with the framework's
 * layout itself.
 *
 * Strings. The library reads the strings it is given and keeps copies as
 * the framework does (a shared buffer with one more reference, or a new
 * buffer when the given one is locked). A CString& it fills (GetLogName,
 * GetTestTexturePath) gets its new text from that string's own manager,
 * as the framework's assignment does. A CString it returns by value
 * (FileReadString, ReadString) comes from the library's own string
 * manager, which allocates from the process heap and lives as long as the
 * DLL is loaded: release such strings before unloading the DLL.
 *
 * Objects. The library assumes the heap of the MSVC run-time's operator
 * new, which is the process heap (GetProcessHeap()): an object the host
 * creates with new may be deleted by the library (mini_close on a
 * CQnIniFile passed as a MiniHandle), and an object the library creates
 * (the CQnIniFile behind a MiniHandle from mini_open_ex) may be deleted by
 * the host through the virtual destructor. The classes carry no run-time
 * type information: dynamic_cast and typeid do not apply to them.
 *
 * MinGW and Linux programs use CQnIniFile.h and CQnMatFile.h instead,
 * which declare the same classes with std::string.
 */
#ifndef QNUTIL_MFC_CLASSES_WIN32_H
#define QNUTIL_MFC_CLASSES_WIN32_H

#if !defined(__cplusplus) || !defined(_MSC_VER)
#error "mfc_classes_win32.h is for C++ hosts built with MSVC (or clang for *-windows-msvc)"
#endif
#if defined(__AFX_H__) && !defined(_AFXDLL)
#error "QnUtil's classes take the CString of MFC in a shared DLL (_AFXDLL)"
#endif

#include "common.h"
#include "ini.h"

#if defined(__AFX_H__)
/** The framework's 8-bit string (CString in a multi-byte build). */
typedef CStringA QnUtilMfcString;
#else
namespace ATL {
template <typename BaseType>
class ChTraitsCRT;
template <typename BaseType, class StringTraits>
class CStringT;
}  // namespace ATL
template <typename BaseType, class StringIterator>
class StrTraitMFC_DLL;
/** The framework's 8-bit string (CString in a multi-byte build). */
typedef ATL::CStringT<char, StrTraitMFC_DLL<char, ATL::ChTraitsCRT<char> > > QnUtilMfcString;
#endif

/** Storage of a framework string inside the classes: one pointer, as the
 *  framework's string object is. Only the library touches it. */
struct QnUtilMfcStringSlot {
  char* data; /**< the string's characters, its header just before them */
};

/**
 * An INI file bound to a path, read and written through the platform's
 * private-profile functions. Every string read asks for the default text
 * "_TheDefault_", so a missing key reads as that text and a key present
 * with an empty value as "".
 */
class QNUTIL_API CQnIniFile {
 public:
  /** Empty path, writable 0. */
  CQnIniFile();
  /** Bound to path; writable is 1 for writing, 0 for reading (kept only). */
  CQnIniFile(const QnUtilMfcString& path, unsigned int writable);
  /** Copies the path and the writable flag. */
  CQnIniFile(const CQnIniFile& other);
  /** Copies the path and the writable flag of other. */
  CQnIniFile& operator=(const CQnIniFile& other);
  /** Releases the path. */
  virtual ~CQnIniFile();

  /** Returns true and changes nothing: the object is bound at construction. */
  bool Open(const QnUtilMfcString& path, unsigned int mode);
  /** Does nothing. */
  void Close();

  /** The value of key in section (cut to 1023 bytes): "" for an empty
   *  value, "_TheDefault_" when the key is missing. */
  static QnUtilMfcString FileReadString(const char* file, const char* section, const char* key);
  /** The value's leading decimal integer; 0 when missing or empty. */
  static int FileReadInt(const char* file, const char* section, const char* key);
  /** The value's leading number (0.0 when there is none); positive
   *  infinity when the key is missing or its value empty. */
  static double FileReadDouble(const char* file, const char* section, const char* key);
  /** Writes value under key; a null value deletes the key, a null key
   *  the whole section. True on success. */
  static bool FileWriteString(const char* file, const char* section, const char* key,
                              const char* value);
  /** Writes the value formatted "%ld". */
  static bool FileWriteInt(const char* file, const char* section, const char* key, int value);
  /** Writes the value formatted "%lg" (six significant digits). */
  static bool FileWriteDouble(const char* file, const char* section, const char* key, double value);

  /** FileReadString on the bound path. */
  QnUtilMfcString ReadString(const char* section, const char* key);
  /** FileReadInt on the bound path. */
  int ReadInt(const char* section, const char* key);
  /** FileReadDouble on the bound path. */
  double ReadDouble(const char* section, const char* key);
  /** FileWriteString on the bound path. */
  bool WriteString(const char* section, const char* key, const char* value);
  /** FileWriteInt on the bound path. */
  bool WriteInt(const char* section, const char* key, int value);
  /** FileWriteDouble on the bound path. */
  bool WriteDouble(const char* section, const char* key, double value);

 private:
  QnUtilMfcStringSlot m_path;
  unsigned int m_writable;
};

/**
 * A material file (section "Material", key "Name", and the section of that
 * name with "kdiffus", "kambient", "kspiegel", "alpha", "Oe", "Bits",
 * "RGBDiffus", "RGBDiffus255", "RGBSpiegel" and "Testtextur") and the
 * record matTyp loaded from it.
 */
class QNUTIL_API CQnMatFile {
 public:
  /** Empty strings, not loaded, record zeroed. */
  CQnMatFile();
  /** As the default constructor, then Read(path). */
  CQnMatFile(const QnUtilMfcString& path);
  /** Copies the loaded flag, the three strings and the record. */
  CQnMatFile(const CQnMatFile& other);
  /** Copies the loaded flag, the three strings and the record of other. */
  CQnMatFile& operator=(const CQnMatFile& other);
  /** Releases the strings. */
  virtual ~CQnMatFile();

  /** Loads the material file: 1 on success, 0 when it is not readable or
   *  lacks the name, "kdiffus" or "kambient". */
  int Read(const QnUtilMfcString& path);
  /** Writes the material into the existing, writable file path, all or
   *  nothing: 1 when the file holds the whole new material, 0 when it was
   *  left as it was. When the file named another material whose section
   *  holds "kdiffus", that section is removed. Bit 0 of Bits is not
   *  stored; the derived Oe fields are not written. */
  int Write(const QnUtilMfcString& path);
  /** Write to the file last given to Read; 0 when there is none. */
  int Write();

  /** The record inside this object, valid while the object lives. */
  matTyp* GetMaterialPtr();
  /** 1 after a successful Read, 0 after a failed one. */
  int IsLoaded();

  /** The material's name; when it is empty it is first set to the file
   *  name (without folder and extension) of the file last read. */
  void GetLogName(QnUtilMfcString& out);
  /** Sets the material's name, used as its section by the next Write. */
  void SetLogName(const QnUtilMfcString& name);
  /** The "Testtextur" value read last, or set with SetTestTexturePath. */
  void GetTestTexturePath(QnUtilMfcString& out);
  /** Sets the "Testtextur" value stored by the next Write. */
  void SetTestTexturePath(const QnUtilMfcString& path);

 private:
  int m_loaded;
  QnUtilMfcStringSlot m_logName;
  QnUtilMfcStringSlot m_testTexturePath;
  QnUtilMfcStringSlot m_filePath;
  matTyp m_material;
};

namespace Gdiplus {
class Bitmap;
}
struct HDC__;

/**
 * Clears the device context to opaque white, scales by (scaleX, scaleY)
 * and draws the image unscaled at (x, y): 1 when the draw succeeded, 0
 * otherwise or for a null image. The image is a GDI+ bitmap as the gdiPlus
 * exports hand out (their void* image handles).
 */
QNUTIL_API int QNUTIL_CALL gdiPlusPrintImage(Gdiplus::Bitmap* image, HDC__* dc, int x, int y,
                                             float scaleX, float scaleY);

#endif /* QNUTIL_MFC_CLASSES_WIN32_H */
