#include "platform/directory_search.h"

#include <io.h>
#include <stdlib.h>

#include <cstring>

namespace qnutil::platform {

struct DirectorySearch::State {
  intptr_t handle = -1;
};

namespace {

void convert(const _finddata64i32_t& data, FoundEntry& entry) {
  entry.name = data.name;
  entry.folder = (data.attrib & _A_SUBDIR) != 0;
  entry.read_only = (data.attrib & _A_RDONLY) != 0;
  entry.hidden = (data.attrib & _A_HIDDEN) != 0;
  entry.system = (data.attrib & _A_SYSTEM) != 0;
  entry.archive = (data.attrib & _A_ARCH) != 0;
  entry.size = static_cast<std::uint32_t>(data.size);
  entry.mtime = data.time_write;
}

}  // namespace

DirectorySearch::DirectorySearch() : state_(std::make_unique<State>()) {}

DirectorySearch::~DirectorySearch() {
  if (state_->handle != -1) _findclose(state_->handle);
}

bool DirectorySearch::open(const char* folder, const char* pattern, FoundEntry& first) {
  // The run-time's path maker adds the separator a folder lacks.
  char search[_MAX_PATH * 2];
  const std::size_t folder_length = folder != nullptr ? std::strlen(folder) : 0;
  if (folder_length + std::strlen(pattern) + 2 > sizeof search) return false;
  _makepath(search, "", folder, pattern, "");
  _finddata64i32_t data;
  state_->handle = _findfirst64i32(search, &data);
  if (state_->handle == -1) return false;
  convert(data, first);
  return true;
}

bool DirectorySearch::next(FoundEntry& entry) {
  _finddata64i32_t data;
  if (state_->handle == -1 || _findnext64i32(state_->handle, &data) != 0) return false;
  convert(data, entry);
  return true;
}

}  // namespace qnutil::platform
