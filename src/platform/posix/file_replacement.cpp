#include "platform/file_replacement.h"
#include "platform/posix/replaced_path.h"
#include "platform/temporary_names.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <string>

namespace qnutil::platform {
namespace {

using posix::folder_of;
using posix::resolved_target;

// Temporary files of `name` whose writer no longer runs: a killed process
// left them.
void remove_stale_temporaries(const std::string& folder, const std::string& name) {
  DIR* directory = ::opendir(folder.c_str());
  if (!directory) return;
  while (const dirent* entry = ::readdir(directory)) {
    const auto writer = static_cast<pid_t>(
        temporary_writer(entry->d_name, name, [](char a, char b) { return a == b; }));
    if (writer > 0 && writer != ::getpid() && ::kill(writer, 0) != 0 && errno == ESRCH) {
      ::unlink((folder + '/' + entry->d_name).c_str());
    }
  }
  ::closedir(directory);
}

}  // namespace

FileReplacement::FileReplacement(const char* path) : target_(resolved_target(path)) {
  struct stat original {};
  target_existed_ = ::stat(target_.c_str(), &original) == 0;
  if (target_existed_ && (!S_ISREG(original.st_mode) || ::access(target_.c_str(), W_OK) != 0)) {
    return;
  }
  // A new file gets the permissions open() would give it; a replaced one
  // keeps its own mode, owner and group.
  if (target_existed_) {
    mode_ = original.st_mode & 07777;
    owner_ = original.st_uid;
    group_ = original.st_gid;
  } else {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    mode_ = 0666 & ~mask;
  }
  const std::string folder = folder_of(target_);
  remove_stale_temporaries(folder, target_.substr(target_.rfind('/') + 1));

  static std::atomic<unsigned> sequence{0};
  temporary_ = temporary_name(target_, static_cast<std::uint32_t>(::getpid()), sequence++);
  const int fd = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (fd >= 0) handle_ = fd;
}

FileReplacement::~FileReplacement() { discard(); }

bool FileReplacement::write(const void* bytes, std::size_t count) {
  const char* next = static_cast<const char*>(bytes);
  while (!failed_ && count) {
    const ssize_t written = ::write(static_cast<int>(handle_), next, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      failed_ = true;
      break;
    }
    next += written;
    count -= static_cast<std::size_t>(written);
  }
  return !failed_;
}

std::string FileReplacement::stage() {
  if (handle_ == kNoHandle) return {};
  const int source = target_existed_ ? ::open(target_.c_str(), O_RDONLY | O_CLOEXEC) : -1;
  if (target_existed_ && source < 0) failed_ = true;
  char chunk[65536];
  while (source >= 0 && !failed_) {
    const ssize_t got = ::read(source, chunk, sizeof chunk);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) failed_ = true;
    if (got <= 0) break;
    write(chunk, static_cast<std::size_t>(got));
  }
  if (source >= 0) ::close(source);
  const bool closed = ::close(static_cast<int>(handle_)) == 0;
  handle_ = kNoHandle;
  staged_ = true;
  if (failed_ || !closed) {
    discard();
    return {};
  }
  return temporary_;
}

bool FileReplacement::commit() {
  if (!opened() || failed_) {
    discard();
    return false;
  }
  // A staged file may have been replaced by its writers since: mode and
  // owner are given to whatever file now stands at the temporary's name.
  const int fd =
      staged_ ? ::open(temporary_.c_str(), O_RDONLY | O_CLOEXEC) : static_cast<int>(handle_);
  handle_ = kNoHandle;
  staged_ = false;
  bool kept = fd >= 0 && ::fchmod(fd, mode_) == 0;
  if (kept && target_existed_ && (owner_ != ::geteuid() || group_ != ::getegid()) &&
      ::fchown(fd, owner_, group_) != 0 && errno != EPERM) {
    kept = false;
  }
  kept = kept && ::fsync(fd) == 0;
  if (fd < 0 || ::close(fd) != 0 || !kept || ::rename(temporary_.c_str(), target_.c_str()) != 0) {
    ::unlink(temporary_.c_str());
    return false;
  }
  // The rename itself reaches the disk with the folder.
  const int folder = ::open(folder_of(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder >= 0) {
    ::fsync(folder);
    ::close(folder);
  }
  return true;
}

void FileReplacement::discard() {
  if (!opened()) return;
  if (handle_ != kNoHandle) ::close(static_cast<int>(handle_));
  ::unlink(temporary_.c_str());
  handle_ = kNoHandle;
  staged_ = false;
}

}  // namespace qnutil::platform
