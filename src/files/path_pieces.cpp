#include "files/path_pieces.h"

#include <cstring>

#include "numeric/multibyte_text.h"
#include "platform/path_syntax.h"

namespace qnutil::files {
namespace {

// Start of the name: just after the last separator that is a character of
// its own, not the trail byte of a double-byte character.
const char* name_start(const char* text) {
  const char* start = text;
  for (const char* p = text; *p != '\0'; p += numeric::character_length(p)) {
    if (numeric::character_length(p) == 1 && platform::is_path_separator(*p)) start = p + 1;
  }
  return start;
}

std::string joined(const PathPieces& pieces) {
  return std::string(pieces.drive) + pieces.folder + pieces.name;
}

}  // namespace

void copy_cut(char* target, std::size_t size, const char* source, std::size_t length) {
  if (length > size - 1) length = size - 1;
  std::memcpy(target, source, length);
  target[length] = '\0';
}

void split_path(const char* path, PathPieces& pieces) {
  pieces.drive[0] = pieces.folder[0] = pieces.name[0] = '\0';
  if (path == nullptr) return;
  const std::size_t drive_length = platform::drive_prefix_length(path);
  copy_cut(pieces.drive, kDriveSize, path, drive_length);
  const char* folder = path + drive_length;
  const char* name = name_start(folder);
  copy_cut(pieces.folder, kFolderSize, folder, static_cast<std::size_t>(name - folder));
  copy_cut(pieces.name, kNameSize, name, std::strlen(name));
}

std::size_t last_character_index(const std::string& text) {
  std::size_t last = std::string::npos;
  for (std::size_t i = 0; i < text.size();) {
    last = i;
    i += numeric::character_length(text.c_str() + i);
  }
  return last;
}

std::string compose_path(const char* base, const char* sub, const char* file) {
  const char separator = platform::path_separator();
  PathPieces pieces{};
  std::string result;
  if (file != nullptr) {
    split_path(file, pieces);
    result = joined(pieces);
  }
  // Each outer piece goes in front of what is composed so far, until a
  // piece names a drive: that one is complete on its own.
  for (const char* outer : {sub, base}) {
    if (outer == nullptr || pieces.drive[0] != '\0') continue;
    split_path(outer, pieces);
    std::string prefix = joined(pieces);
    // A last component without separator still names a folder here.
    if (!result.empty() && pieces.name[0] != '\0') prefix += separator;
    if (prefix.empty()) continue;
    if (prefix[last_character_index(prefix)] == separator && !result.empty() &&
        result.front() == separator) {
      result.erase(0, 1);
    }
    result.insert(0, prefix);
  }
  platform::fold_path_case(result.data());
  return result;
}

std::optional<std::string> compose_whole_path(const char* base, const char* sub, const char* file) {
  for (const char* piece : {base, sub, file}) {
    if (piece == nullptr) continue;
    PathPieces pieces;
    split_path(piece, pieces);
    if (joined(pieces).size() != std::strlen(piece)) return std::nullopt;
  }
  std::string path = compose_path(base, sub, file);
  if (path.size() >= kPathSize) return std::nullopt;
  return path;
}

}  // namespace qnutil::files
