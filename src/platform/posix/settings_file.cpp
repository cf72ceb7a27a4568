#include "platform/settings_file.h"

#include <sys/stat.h>
#include <unistd.h>

namespace qnutil::platform {

std::optional<FileStamp> settings_file_stamp(const char* path) {
  struct stat info {};
  if (::stat(path, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
  FileStamp stamp;
  stamp.size = static_cast<std::uint64_t>(info.st_size);
  stamp.modified =
      static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
  stamp.identity =
      static_cast<std::uint64_t>(info.st_ino) ^ (static_cast<std::uint64_t>(info.st_dev) << 32);
  return stamp;
}

bool can_read_file(const char* path) { return ::access(path, R_OK) == 0; }
bool can_write_file(const char* path) { return ::access(path, W_OK) == 0; }

}  // namespace qnutil::platform
