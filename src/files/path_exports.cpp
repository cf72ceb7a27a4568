// Exports of path splitting and composition.
#include <cstring>

#include "files/path_pieces.h"
#include "frame/export_guard.h"
#include "platform/codepage.h"
#include "qnutil/files.h"

using namespace qnutil::files;

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_Divide(const char* path, char* drive, char* dir,
                                                    char* name) {
  PathPieces pieces;
  split_path(path, pieces);
  // Callers may skip pieces they do not need.
  if (drive != nullptr) std::memcpy(drive, pieces.drive, sizeof pieces.drive);
  if (dir != nullptr) std::strcpy(dir, pieces.folder);
  if (name != nullptr) std::strcpy(name, pieces.name);
  return 0;
}

extern "C" QNUTIL_API char* QNUTIL_CALL QnUtil_Makepath(char* out, const char* base,
                                                        const char* sub, const char* file) {
  if (out == nullptr) return nullptr;
  return qnutil::frame::guard_export<char*>(nullptr, [&] {
    const std::string path = compose_path(base, sub, file);
    copy_cut(out, kPathSize, path.data(), path.size());
    return out;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_GetExtensionPos(const char* name) {
  if (name == nullptr) return -1;
  int i = static_cast<int>(std::strlen(name)) - 1;
  if (i < 1) return -1;
  while (qnutil::platform::is_lead_byte(static_cast<unsigned char>(name[i])) || name[i] != '.') {
    if (--i < 1) return -1;
  }
  return i;
}
