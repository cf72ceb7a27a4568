// QnUtil_Listdir / QnUtil_FreeEntries: a folder listing as one C block of
// fixed 272-byte records that the host walks by index.
#include <cstddef>
#include <cstdlib>

#include "files/path_pieces.h"
#include "frame/export_guard.h"
#include "platform/directory_search.h"
#include "qnutil/files.h"

static_assert(sizeof(QnUtilDirEntry) == 272);
static_assert(offsetof(QnUtilDirEntry, name) == 0);
static_assert(offsetof(QnUtilDirEntry, flags) == 256);
static_assert(offsetof(QnUtilDirEntry, size) == 260);
static_assert(offsetof(QnUtilDirEntry, mtime) == 264);
static_assert(offsetof(QnUtilDirEntry, reserved) == 268);

namespace {

constexpr unsigned kGrowth = 10;
// Midnight of 1 January 1980 in Central European time: what the host
// shows for a file whose time the search could not tell.
constexpr std::uint32_t kUnknownTime = 315529200;

void fill(const qnutil::platform::FoundEntry& found, QnUtilDirEntry& entry) {
  qnutil::files::copy_cut(entry.name, sizeof entry.name, found.name.data(), found.name.size());
  std::uint32_t flags = found.folder ? QNUTIL_ENTRY_FOLDER : QNUTIL_ENTRY_FILE;
  if (found.read_only) flags |= QNUTIL_ENTRY_READONLY;
  if (found.hidden) flags |= QNUTIL_ENTRY_HIDDEN;
  if (found.system) flags |= QNUTIL_ENTRY_SYSTEM;
  if (found.archive) flags |= QNUTIL_ENTRY_ARCHIVE;
  entry.flags = flags;
  entry.size = found.size;
  entry.mtime = found.mtime == -1 ? kUnknownTime : static_cast<std::uint32_t>(found.mtime);
}

int list_entries(const char* dir, const char* pattern, QnUtilDirEntry** list, unsigned* count) {
  if (pattern == nullptr || *pattern == '\0') pattern = "*.*";
  auto* block = static_cast<QnUtilDirEntry*>(std::malloc(kGrowth * sizeof(QnUtilDirEntry)));
  // Deliberately success with an empty result: hosts treat it as an empty
  // folder rather than an error.
  if (block == nullptr) return 0;
  qnutil::platform::DirectorySearch search;
  qnutil::platform::FoundEntry found;
  if (!search.open(dir, pattern, found)) {
    std::free(block);
    return -1;
  }
  unsigned filled = 0;
  do {
    fill(found, block[filled++]);
    if (filled % kGrowth == 0) {
      void* larger = std::realloc(block, (filled + kGrowth) * sizeof(QnUtilDirEntry));
      if (larger == nullptr) {
        std::free(block);
        return -1;
      }
      block = static_cast<QnUtilDirEntry*>(larger);
    }
  } while (search.next(found));
  *list = block;
  *count = filled;
  return 0;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_Listdir(const char* dir, const char* pattern,
                                                     unsigned int /*ignored*/,
                                                     QnUtilDirEntry** list, unsigned int* count) {
  if (list == nullptr || count == nullptr) return -1;
  *list = nullptr;
  *count = 0;
  return qnutil::frame::guard_export(-1, [&] { return list_entries(dir, pattern, list, count); });
}

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_FreeEntries(QnUtilDirEntry** list) {
  if (list == nullptr) return;
  std::free(*list);
  *list = nullptr;
}
