#include "ini/profile_engine.h"

#include <cstdio>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "ini/profile_edit.h"
#include "ini/profile_query.h"
#include "platform/file_replacement.h"
#include "platform/folder_lock.h"
#include "platform/settings_file.h"

namespace qnutil::ini {
namespace {

using platform::FileStamp;

std::optional<std::string> read_whole_file(const char* path, std::uint64_t expected_size) {
  std::FILE* file = std::fopen(path, "rb");
  if (!file) return std::nullopt;
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(expected_size));
  char chunk[65536];
  std::size_t got = 0;
  while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) bytes.append(chunk, got);
  const bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) return std::nullopt;
  return bytes;
}

// The most recently used parsed files, each valid while its stamp holds.
class ParsedFileCache {
 public:
  struct Loaded {
    bool exists = false;                  // a regular file is there
    std::shared_ptr<const IniText> text;  // null when it could not be read
  };

  Loaded load(const char* path) {
    const auto stamp = platform::settings_file_stamp(path);
    if (!stamp) {
      forget(path);
      return {};
    }
    for (auto it = files_.begin(); it != files_.end(); ++it) {
      if (it->path != path) continue;
      if (it->stamp == *stamp) {
        files_.splice(files_.begin(), files_, it);
        return {true, files_.front().text};
      }
      files_.erase(it);
      break;
    }
    auto bytes = read_whole_file(path, stamp->size);
    if (!bytes) return {true, nullptr};
    auto text = std::make_shared<const IniText>(std::move(*bytes));
    // A file that changed while it was read is used once, not kept.
    if (platform::settings_file_stamp(path) == stamp) remember(path, *stamp, text);
    return {true, text};
  }

  void remember(const char* path, const FileStamp& stamp, std::shared_ptr<const IniText> text) {
    forget(path);
    files_.push_front({path, stamp, std::move(text)});
    if (files_.size() > kCapacity) files_.pop_back();
  }

  void forget(const char* path) {
    files_.remove_if([path](const Entry& entry) { return entry.path == path; });
  }

 private:
  static constexpr std::size_t kCapacity = 8;
  struct Entry {
    std::string path;
    FileStamp stamp;
    std::shared_ptr<const IniText> text;
  };
  std::list<Entry> files_;
};

std::mutex profile_lock;
ParsedFileCache& cache() {
  static ParsedFileCache instance;
  return instance;
}

bool has_path(const char* file) { return file && *file; }

// What reads see: an unnamed file is no file at all.
ParsedFileCache::Loaded load_for_reading(const char* file) {
  return has_path(file) ? cache().load(file) : ParsedFileCache::Loaded{};
}

}  // namespace

std::uint32_t profile_get_string(const char* section, const char* key, const char* fallback,
                                 char* buffer, std::uint32_t size, const char* file) {
  std::lock_guard lock(profile_lock);
  return query_profile_string(load_for_reading(file).text.get(), section, key, fallback, buffer,
                              size);
}

std::uint32_t profile_get_int(const char* section, const char* key, int fallback,
                              const char* file) {
  std::lock_guard lock(profile_lock);
  return query_profile_int(load_for_reading(file).text.get(), section, key, fallback);
}

bool profile_write_string(const char* section, const char* key, const char* value,
                          const char* file) {
  if (!has_path(file)) return false;
  if (!section) {
    std::lock_guard lock(profile_lock);
    if (!key && !value) cache().forget(file);
    return false;
  }
  // Other processes' writers wait while this one reads, edits and replaces
  // the file, so that concurrent writes of different keys all land. The
  // folder comes first, the cache's lock second, always: a material save
  // holds its folder while it writes through here.
  const platform::FolderLock folder_lock(file);
  std::lock_guard lock(profile_lock);
  const auto loaded = cache().load(file);
  if (loaded.exists && !loaded.text) return false;
  const IniText empty{std::string()};
  const IniText& current = loaded.text ? *loaded.text : empty;
  std::string bytes = edit_profile(current, section, key, value);
  if (loaded.exists && bytes == current.bytes()) return true;
  if (!platform::replace_file(file, bytes)) {
    cache().forget(file);
    return false;
  }
  if (const auto stamp = platform::settings_file_stamp(file)) {
    cache().remember(file, *stamp, std::make_shared<const IniText>(std::move(bytes)));
  }
  return true;
}

}  // namespace qnutil::ini
