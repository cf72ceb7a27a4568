#include "platform/settings_file.h"

#include <windows.h>
#include <io.h>

#include <string>

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

bool replace_settings_file(const char* path, std::string_view bytes) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))) {
    return false;
  }
  const std::string temporary = std::string(path) + ".new";
  const HANDLE file = CreateFileA(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  bool written = true;
  while (written && !bytes.empty()) {
    const DWORD chunk = bytes.size() > 0x40000000u ? 0x40000000u : static_cast<DWORD>(bytes.size());
    DWORD done = 0;
    written = WriteFile(file, bytes.data(), chunk, &done, nullptr) && done == chunk;
    bytes.remove_prefix(done);
  }
  written = FlushFileBuffers(file) && written;
  CloseHandle(file);
  if (!written || !MoveFileExA(temporary.c_str(), path,
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    DeleteFileA(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace qnutil::platform
