#include "platform/file_replacement.h"
#include "platform/temporary_names.h"

#include <windows.h>

#include <atomic>
#include <cctype>
#include <string>

namespace qnutil::platform {
namespace {

bool process_runs(DWORD id) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, id);
  if (!process) return GetLastError() == ERROR_ACCESS_DENIED;
  const bool running = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return running;
}

// Temporary files of `name` whose writer no longer runs: a killed process
// left them.
void remove_stale_temporaries(const std::string& folder, const std::string& name) {
  WIN32_FIND_DATAA found;
  const HANDLE search =
      FindFirstFileA((folder + name + kTemporaryMarker + "*" + kTemporarySuffix).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const DWORD writer = temporary_writer(found.cFileName, name, [](char a, char b) {
      return std::tolower(static_cast<unsigned char>(a)) ==
             std::tolower(static_cast<unsigned char>(b));
    });
    if (writer && writer != GetCurrentProcessId() && !process_runs(writer)) {
      DeleteFileA((folder + found.cFileName).c_str());
    }
  } while (FindNextFileA(search, &found));
  FindClose(search);
}

}  // namespace

FileReplacement::FileReplacement(const char* path) : target_(path) {
  const DWORD attributes = GetFileAttributesA(path);
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))) {
    return;
  }
  const std::size_t slash = target_.find_last_of("\\/:");
  const std::string folder = slash == std::string::npos ? "" : target_.substr(0, slash + 1);
  remove_stale_temporaries(folder, target_.substr(folder.size()));
  static std::atomic<unsigned> sequence{0};
  temporary_ = temporary_name(target_, GetCurrentProcessId(), sequence++);
  const HANDLE file = CreateFileA(temporary_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) handle_ = reinterpret_cast<std::intptr_t>(file);
}

FileReplacement::~FileReplacement() { discard(); }

bool FileReplacement::write(const void* bytes, std::size_t count) {
  const char* next = static_cast<const char*>(bytes);
  while (!failed_ && count) {
    const DWORD chunk = count > 0x40000000u ? 0x40000000u : static_cast<DWORD>(count);
    DWORD done = 0;
    if (!WriteFile(reinterpret_cast<HANDLE>(handle_), next, chunk, &done, nullptr) || done == 0) {
      failed_ = true;
      break;
    }
    next += done;
    count -= done;
  }
  return !failed_;
}

std::string FileReplacement::stage() {
  if (handle_ == kNoHandle) return {};
  CloseHandle(reinterpret_cast<HANDLE>(handle_));
  handle_ = kNoHandle;
  staged_ = true;
  if (GetFileAttributesA(target_.c_str()) != INVALID_FILE_ATTRIBUTES &&
      !CopyFileA(target_.c_str(), temporary_.c_str(), FALSE)) {
    discard();
    return {};
  }
  return temporary_;
}

// ReplaceFile keeps the target's attributes, security and owner; a target
// that does not exist yet is simply moved into place.
bool FileReplacement::commit() {
  if (!opened() || failed_) {
    discard();
    return false;
  }
  const HANDLE file = staged_ ? CreateFileA(temporary_.c_str(), GENERIC_WRITE, 0, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)
                              : reinterpret_cast<HANDLE>(handle_);
  handle_ = kNoHandle;
  staged_ = false;
  const bool flushed = file != INVALID_HANDLE_VALUE && FlushFileBuffers(file);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  if (!flushed) {
    DeleteFileA(temporary_.c_str());
    return false;
  }
  const bool replaced =
      GetFileAttributesA(target_.c_str()) == INVALID_FILE_ATTRIBUTES
          ? MoveFileExA(temporary_.c_str(), target_.c_str(), MOVEFILE_WRITE_THROUGH) != 0
          : ReplaceFileA(target_.c_str(), temporary_.c_str(), nullptr,
                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
  if (!replaced) DeleteFileA(temporary_.c_str());
  return replaced;
}

void FileReplacement::discard() {
  if (!opened()) return;
  if (handle_ != kNoHandle) CloseHandle(reinterpret_cast<HANDLE>(handle_));
  DeleteFileA(temporary_.c_str());
  handle_ = kNoHandle;
  staged_ = false;
}

}  // namespace qnutil::platform
