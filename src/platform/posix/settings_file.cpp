#include "platform/settings_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string>

namespace qnutil::platform {
namespace {

bool write_all(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// A symbolic link is followed, so that the file it names is replaced and
// the link stays.
std::string resolved_target(const char* path) {
  char resolved[PATH_MAX];
  return ::realpath(path, resolved) ? std::string(resolved) : std::string(path);
}

}  // namespace

std::optional<FileStamp> settings_file_stamp(const char* path) {
  struct stat info {};
  if (::stat(path, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
  FileStamp stamp;
  stamp.size = static_cast<std::uint64_t>(info.st_size);
  stamp.modified = static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec;
  stamp.identity = static_cast<std::uint64_t>(info.st_ino) ^ (static_cast<std::uint64_t>(info.st_dev) << 32);
  return stamp;
}

bool can_read_file(const char* path) { return ::access(path, R_OK) == 0; }
bool can_write_file(const char* path) { return ::access(path, W_OK) == 0; }

bool replace_settings_file(const char* path, std::string_view bytes) {
  const std::string target = resolved_target(path);
  struct stat original {};
  const bool exists = ::stat(target.c_str(), &original) == 0;
  if (exists && (!S_ISREG(original.st_mode) || ::access(target.c_str(), W_OK) != 0)) return false;

  std::string temporary = target + ".XXXXXX";
  const int fd = ::mkstemp(temporary.data());
  if (fd < 0) return false;
  // mkstemp creates the file for its owner only; a new settings file gets
  // the permissions open() would give it, a replaced one keeps its own.
  mode_t mode = original.st_mode & 07777;
  if (!exists) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    mode = 0666 & ~mask;
  }
  const bool written = write_all(fd, bytes) && ::fchmod(fd, mode) == 0 && ::fsync(fd) == 0;
  if (::close(fd) != 0 || !written || ::rename(temporary.c_str(), target.c_str()) != 0) {
    ::unlink(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace qnutil::platform
