#include "platform/settings_file.h"

#include <windows.h>
#include <io.h>

namespace qnutil::platform {

std::optional<FileStamp> settings_file_stamp(const char* path) {
  WIN32_FILE_ATTRIBUTE_DATA info;
  if (!GetFileAttributesExA(path, GetFileExInfoStandard, &info) ||
      (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
    return std::nullopt;
  }
  FileStamp stamp;
  stamp.size = (static_cast<std::uint64_t>(info.nFileSizeHigh) << 32) | info.nFileSizeLow;
  stamp.modified = static_cast<std::int64_t>(
      (static_cast<std::uint64_t>(info.ftLastWriteTime.dwHighDateTime) << 32) |
      info.ftLastWriteTime.dwLowDateTime);
  stamp.identity = (static_cast<std::uint64_t>(info.ftCreationTime.dwHighDateTime) << 32) |
                   info.ftCreationTime.dwLowDateTime;
  return stamp;
}

bool can_read_file(const char* path) { return _access(path, 4) == 0; }
bool can_write_file(const char* path) { return _access(path, 2) == 0; }

}  // namespace qnutil::platform
