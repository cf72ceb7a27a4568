// Whole-file access for settings files: a cheap stamp that tells whether a
// file changed since it was last read, and access checks.
#pragma once

#include <cstdint>
#include <optional>

namespace qnutil::platform {

// Changes whenever the file's contents may have changed: size and time of
// last write, plus the file's identity where the platform has one (a file
// replaced by renaming another over it is a different file).
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t modified = 0;  // platform units, compared only
  std::uint64_t identity = 0;
  bool operator==(const FileStamp&) const = default;
};

// The stamp of a regular file, nothing when `path` names no regular file.
std::optional<FileStamp> settings_file_stamp(const char* path);

// Whether an existing file may be opened for reading / for writing.
bool can_read_file(const char* path);
bool can_write_file(const char* path);

}  // namespace qnutil::platform
