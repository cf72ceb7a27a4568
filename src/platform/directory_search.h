// Searching a folder for entries that match a wildcard pattern.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace qnutil::platform {

struct FoundEntry {
  std::string name;  // without folder
  bool folder = false;
  bool read_only = false;
  bool hidden = false;
  bool system = false;
  bool archive = false;
  std::uint32_t size = 0;   // low 32 bits
  std::int64_t mtime = -1;  // seconds since 1970 UTC; -1 when unknown
};

// One open search, entries in the order the file system yields them
// (no sorting; "." and ".." are kept when the pattern matches them).
class DirectorySearch {
 public:
  DirectorySearch();
  ~DirectorySearch();
  DirectorySearch(const DirectorySearch&) = delete;
  DirectorySearch& operator=(const DirectorySearch&) = delete;

  // Starts searching `folder` for `pattern` ('*' and '?' wildcards, case
  // blind, "*.*" matching every name) and fetches the first match. False
  // when the folder is missing or nothing matches.
  bool open(const char* folder, const char* pattern, FoundEntry& first);
  // Fetches the next match; false at the end.
  bool next(FoundEntry& entry);

  struct State;

 private:
  std::unique_ptr<State> state_;
};

}  // namespace qnutil::platform
