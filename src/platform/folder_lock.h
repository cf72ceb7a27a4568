// Excludes the writers of other processes (and other threads) while one
// reads, changes and replaces a file: held on the file's folder, since a
// replacement renames a new file over the old one and a lock on the file
// itself would stay behind on the old one.
#pragma once

#include <cstdint>

namespace qnutil::platform {

class FolderLock {
 public:
  // Waits until no other FolderLock holds the folder of `path`; one this
  // thread holds already is simply held on. Where the folder cannot be
  // locked (it does not exist) the lock is empty: the write that follows
  // fails on its own.
  explicit FolderLock(const char* path);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  std::intptr_t handle_;
};

}  // namespace qnutil::platform
