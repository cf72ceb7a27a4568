#include "platform/folder_lock.h"

#include <windows.h>

#include <cctype>
#include <string>

namespace qnutil::platform {

// A named mutex per folder, for the programs of this session: folders
// cannot be locked as files can. The name holds the folder's full path,
// folded to lower case as Windows compares paths, with '\' (reserved in
// mutex names) as '/'.
FolderLock::FolderLock(const char* path) : handle_(0) {
  char full[MAX_PATH];
  char* name_part = nullptr;
  const DWORD length = GetFullPathNameA(path, sizeof full, full, &name_part);
  if (length == 0 || length >= sizeof full || !name_part) return;
  constexpr char kPrefix[] = "Local\\qnutil-folder-lock:";
  std::string name = kPrefix + std::string(full, name_part);
  for (std::size_t i = sizeof kPrefix - 1; i < name.size(); ++i) {
    name[i] = name[i] == '\\'
                  ? '/'
                  : static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  }
  if (name.size() >= MAX_PATH) return;
  const HANDLE mutex = CreateMutexA(nullptr, FALSE, name.c_str());
  if (!mutex) return;
  const DWORD waited = WaitForSingleObject(mutex, INFINITE);
  if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) {
    CloseHandle(mutex);
    return;
  }
  handle_ = reinterpret_cast<std::intptr_t>(mutex);
}

FolderLock::~FolderLock() {
  if (!handle_) return;
  const HANDLE mutex = reinterpret_cast<HANDLE>(handle_);
  ReleaseMutex(mutex);
  CloseHandle(mutex);
}

}  // namespace qnutil::platform
