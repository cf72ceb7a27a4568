/*
 * CQnMatFile: a material (surface shading parameters) stored as a small
 * INI file, loaded into the record matTyp that renderers read by pointer.
 *
 * File layout: section "Material", key "Name" names the material; the
 * section of that name holds "kdiffus", "kambient", "kspiegel", "alpha",
 * "Oe" (specular exponent), "Bits", "RGBDiffus" and "RGBSpiegel" (three
 * numbers 0 to 1, comma-separated; "RGBDiffus255" with three integers 0 to
 * 255 is read when "RGBDiffus" is present but empty) and "Testtextur".
 * C++ only.
 */
#ifndef QNUTIL_CQNMATFILE_H
#define QNUTIL_CQNMATFILE_H

#ifdef _MSC_VER
#error "MSVC hosts declare the classes with the framework's CString: include mfc_classes_win32.h"
#endif

#include <string>

#include "common.h"
#include "ini.h"

/** A material file and its loaded record; see the notes at the top of this header. */
class QNUTIL_API CQnMatFile {
 public:
  /** Empty names, not loaded, record zeroed. */
  CQnMatFile();
  /** As the default constructor, then Read(path). */
  explicit CQnMatFile(const std::string& path);
  /** Copies the names, the file last read, the loaded flag and the record. */
  CQnMatFile(const CQnMatFile& other);
  /** Takes over the names, the file last read, the loaded flag and the record of other. */
  CQnMatFile& operator=(const CQnMatFile& other);
  virtual ~CQnMatFile();

  /**
   * Loads the material file: 1 on success, 0 when the file is not readable
   * (the remembered path is then cleared and the object marked not loaded)
   * or has no name, no "kdiffus" or no "kambient" (the loaded flag then
   * stays as it was and the record may be partly set). Missing keys take
   * their defaults: 0.4 for the coefficients, 30 for Oe, 0.4 grey diffuse
   * and 0.5 grey specular colour.
   */
  int Read(const std::string& path);
  /**
   * Writes the material into the existing, writable file path, all or
   * nothing: 1 when the file holds the whole new material, 0 when it was
   * left as it was (a full disk or any other failed write included). When
   * the file named another material whose section holds "kdiffus", that
   * section is removed. Bit 0 of Bits is not stored; the derived Oe fields
   * are not written.
   */
  int Write(const std::string& path);
  /** Write to the file last given to Read; 0 when there is none. */
  int Write();

  /** The record inside this object, valid while the object lives. */
  matTyp* GetMaterialPtr();
  /** 1 after a successful Read, 0 after a failed one. */
  int IsLoaded() const;

  /** The material's name; when it is empty it is first set to the file
   *  name (without folder and extension) of the file last read. */
  void GetLogName(std::string& out);
  /** Sets the material's name, used as its section by the next Write. */
  void SetLogName(const std::string& name);
  /** The "Testtextur" value read last, or set with SetTestTexturePath. */
  void GetTestTexturePath(std::string& out) const;
  /** Sets the "Testtextur" value stored by the next Write. */
  void SetTestTexturePath(const std::string& path);

 private:
  int m_loaded;
  std::string m_logName;
  std::string m_testTexturePath;
  std::string m_filePath;
  matTyp m_material;
};

#endif /* QNUTIL_CQNMATFILE_H */
