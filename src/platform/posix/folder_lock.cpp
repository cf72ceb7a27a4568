#include "platform/folder_lock.h"
#include "platform/posix/replaced_path.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <algorithm>
#include <string>
#include <vector>

namespace qnutil::platform {

namespace {

// Folders this thread holds, so that a writer holding a folder may call
// another that locks it again (a material save writes through the profile
// functions): flock would make the inner lock wait for the outer.
thread_local std::vector<std::string> held_folders;

}  // namespace

// The folder of the file a symbolic link names: that is where the file is
// replaced. flock locks belong to the open folder, so threads of one
// process exclude each other as processes do.
FolderLock::FolderLock(const char* path) : handle_(-1) {
  const std::string folder = posix::folder_of(posix::resolved_target(path));
  if (std::find(held_folders.begin(), held_folders.end(), folder) != held_folders.end()) return;
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  while (::flock(fd, LOCK_EX) != 0) {
    if (errno != EINTR) {
      ::close(fd);
      return;
    }
  }
  handle_ = fd;
  held_folders.push_back(folder);
}

FolderLock::~FolderLock() {
  if (handle_ < 0) return;
  held_folders.pop_back();
  ::close(static_cast<int>(handle_));  // closing releases the lock
}

}  // namespace qnutil::platform
