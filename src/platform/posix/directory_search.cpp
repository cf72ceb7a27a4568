#include "platform/directory_search.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cstring>

namespace qnutil::platform {

struct DirectorySearch::State {
  DIR* dir = nullptr;
  std::string folder;
  std::string pattern;
};

namespace {

char fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// '*' any run of characters, '?' exactly one; ASCII letters compare case
// blind, as on the file systems the host was written for.
bool glob_match(const char* pattern, const char* name) {
  const char* star = nullptr;
  const char* resume = nullptr;
  while (*name != '\0') {
    if (*pattern == '*') {
      star = pattern++;
      resume = name;
    } else if (*pattern == '?' || (*pattern != '\0' && fold(*pattern) == fold(*name))) {
      ++pattern;
      ++name;
    } else if (star != nullptr) {
      pattern = star + 1;
      name = ++resume;
    } else {
      return false;
    }
  }
  while (*pattern == '*') ++pattern;
  return *pattern == '\0';
}

// Windows' extra rules for the dot: "x.*" also matches "x" (so "*.*" matches
// every name), and a pattern ending in "." matches names without a dot.
bool windows_match(const std::string& pattern, const char* name) {
  if (glob_match(pattern.c_str(), name)) return true;
  const std::size_t length = pattern.size();
  if (length >= 2 && pattern.compare(length - 2, 2, ".*") == 0) {
    return glob_match(pattern.substr(0, length - 2).c_str(), name);
  }
  if (length >= 1 && pattern.back() == '.' && std::strchr(name, '.') == nullptr) {
    return glob_match(pattern.substr(0, length - 1).c_str(), name);
  }
  return false;
}

void describe(const std::string& folder, const char* name, FoundEntry& entry) {
  entry = FoundEntry{};
  entry.name = name;
  const std::string path = folder + "/" + name;
  struct stat info;
  if (stat(path.c_str(), &info) != 0 && lstat(path.c_str(), &info) != 0) return;
  entry.folder = S_ISDIR(info.st_mode);
  entry.read_only = (info.st_mode & S_IWUSR) == 0;
  // Dot files are hidden by convention; the folder's own entries are not.
  entry.hidden = name[0] == '.' && std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0;
  // Files count as changed since the last backup, as Windows marks them.
  entry.archive = !entry.folder;
  // Windows reports no size for folders; neither does the listing here.
  entry.size = entry.folder ? 0 : static_cast<std::uint32_t>(info.st_size);
  // Times before 1970 are unknown to the listing, as to the Windows run-time.
  entry.mtime = info.st_mtime < 0 ? -1 : static_cast<std::int64_t>(info.st_mtime);
}

}  // namespace

DirectorySearch::DirectorySearch() : state_(std::make_unique<State>()) {}

DirectorySearch::~DirectorySearch() {
  if (state_->dir != nullptr) closedir(state_->dir);
}

bool DirectorySearch::open(const char* folder, const char* pattern, FoundEntry& first) {
  state_->folder = folder != nullptr && *folder != '\0' ? folder : ".";
  state_->pattern = pattern;
  // A pattern may carry folders of its own, as Windows allows.
  if (const std::size_t slash = state_->pattern.rfind('/'); slash != std::string::npos) {
    state_->folder += "/" + state_->pattern.substr(0, slash);
    state_->pattern.erase(0, slash + 1);
  }
  state_->dir = opendir(state_->folder.c_str());
  return state_->dir != nullptr && next(first);
}

bool DirectorySearch::next(FoundEntry& entry) {
  if (state_->dir == nullptr) return false;
  while (const dirent* found = readdir(state_->dir)) {
    if (windows_match(state_->pattern, found->d_name)) {
      describe(state_->folder, found->d_name, entry);
      return true;
    }
  }
  return false;
}

}  // namespace qnutil::platform
