// Faults for the durability tests (POSIX): a child process whose files
// cannot grow past a size, so that its writes fail there as on a full
// disk; and the leftovers a writer may leave in a folder.
#pragma once

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace qnutil_test {

// The child's exit code, -1 when it died.
inline int wait_child(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Starts body() in a child and returns its pid; the child exits 0 after it.
template <class Body>
pid_t start_child(Body body) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    body();
    ::_exit(0);
  }
  return child;
}

// Runs body() in a child whose writes fail past `limit` bytes of any file
// (EFBIG, as ENOSPC on a full disk). The child's exit code is body's
// result (0 to 255); -1 when it died.
template <class Body>
int run_with_file_limit(off_t limit, Body body) {
  return wait_child(start_child([&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit size{static_cast<rlim_t>(limit), static_cast<rlim_t>(limit)};
    ::setrlimit(RLIMIT_FSIZE, &size);
    ::_exit(body());
  }));
}

// The names in a folder, sorted.
inline std::vector<std::string> folder_names(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Sizes at which a writer of `size` bytes in blocks of `block` is cut: the
// empty file, each block's edges and the whole file but one byte.
inline std::vector<off_t> cut_points(off_t size, off_t block) {
  std::vector<off_t> points{0, 1};
  for (off_t edge = block; edge < size; edge += block) {
    points.insert(points.end(), {edge - 1, edge, edge + 1});
  }
  points.push_back(size - 1);
  points.erase(std::remove_if(points.begin(), points.end(),
                              [size](off_t point) { return point < 0 || point >= size; }),
               points.end());
  return points;
}

}  // namespace qnutil_test
