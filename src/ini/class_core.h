/*
 * What the exported classes are built on, as plain C: the GCC classes
 * (CQnIniFile.h, CQnMatFile.h) and the MSVC-ABI classes of the Windows DLLs
 * (mfc_classes_win32.h), which are compiled by another compiler and can
 * share nothing but C calls with the rest of the library. Internal; none
 * of these names is exported.
 */
#ifndef QNUTIL_INI_CLASS_CORE_H
#define QNUTIL_INI_CLASS_CORE_H

#include "qnutil/ini.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Size of the value buffer of qnutil_ini_read_string, terminator included. */
#define QNUTIL_INI_VALUE_BUFFER_SIZE 1024

/* CQnIniFile's static functions. qnutil_ini_read_string fills `value`
 * (QNUTIL_INI_VALUE_BUFFER_SIZE bytes) with the value, "" for an empty
 * one, or the missing-key marker, and returns its length. */
unsigned qnutil_ini_read_string(const char* file, const char* section, const char* key,
                                char* value);
int qnutil_ini_read_int(const char* file, const char* section, const char* key);
double qnutil_ini_read_double(const char* file, const char* section, const char* key);
int qnutil_ini_write_string(const char* file, const char* section, const char* key,
                            const char* value);
int qnutil_ini_write_int(const char* file, const char* section, const char* key, int value);
int qnutil_ini_write_double(const char* file, const char* section, const char* key, double value);

/* Sets a string of the calling class's own kind to text. */
typedef void (*QnUtilAssignText)(void* string, const char* text);

/* The strings a CQnMatFile owns, each set through `assign`. */
typedef struct QnUtilMaterialStrings {
  QnUtilAssignText assign;
  void* log_name;
  void* test_texture_path;
  void* file_path;
} QnUtilMaterialStrings;

/* CQnMatFile::Read: sets the file path, the name, the record, the test
 * texture and *loaded as the material file says; 1 or 0. */
int qnutil_material_read(const char* path, int* loaded, matTyp* record,
                         const QnUtilMaterialStrings* strings);
/* CQnMatFile::Write(path): 1 when the file now holds the whole new
 * material, 0 when it holds the old one untouched (an empty path, a file
 * that does not exist or cannot be written, a write that failed). */
int qnutil_material_write(const char* path, const char* log_name, const char* test_texture_path,
                          const matTyp* record);
/* The default name of a material: the file name of file_path without
 * folder and extension, set through assign. */
void qnutil_material_name_of_path(const char* file_path, QnUtilAssignText assign, void* string);

/* The object behind a MiniHandle: created for mini_open_ex, its bound
 * path, destroyed by mini_close. NULL when it cannot be allocated. */
MiniHandle qnutil_mini_create(const char* path, unsigned writable);
const char* qnutil_mini_path(MiniHandle handle);
void qnutil_mini_destroy(MiniHandle handle);

#ifdef __cplusplus
}
#endif

#endif /* QNUTIL_INI_CLASS_CORE_H */
