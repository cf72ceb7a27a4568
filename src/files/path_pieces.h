// Taking paths apart and joining them, the way every family of the library
// composes file names.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "qnutil/files.h"

namespace qnutil::files {

// Buffer sizes of the pieces, terminator included; also the size of a
// composed path: the C interface's buffers.
inline constexpr std::size_t kDriveSize = QNUTIL_DRIVE_SIZE;
inline constexpr std::size_t kFolderSize = QNUTIL_FOLDER_SIZE;
inline constexpr std::size_t kNameSize = QNUTIL_NAME_SIZE;
inline constexpr std::size_t kPathSize = QNUTIL_PATH_SIZE;

struct PathPieces {
  char drive[kDriveSize];    // "C:" or empty
  char folder[kFolderSize];  // with its trailing separator where present
  char name[kNameSize];      // file name and extension joined
};

// Splits `path` (null counts as empty) into drive, folder and name. Pieces
// longer than their buffers are cut, as the run-time's splitter does.
void split_path(const char* path, PathPieces& pieces);

// The composition rules of QnUtil_Makepath: `file` under `sub` under
// `base`, a piece with a drive ending the climb; case folded as the
// platform's paths are. Any piece may be null.
std::string compose_path(const char* base, const char* sub, const char* file);

// compose_path for a path that a file is then opened under: nothing when a
// piece does not fit its buffer or the path does not fit kPathSize, where
// compose_path would cut them and so name another file.
std::optional<std::string> compose_whole_path(const char* base, const char* sub, const char* file);

// Copies `length` bytes of `source` into `target` (`size` bytes), cut to
// fit and terminated: the fixed buffers of the C interface are the
// contract, never written past.
void copy_cut(char* target, std::size_t size, const char* source, std::size_t length);

// Index of the last character's first byte, stepping over double-byte
// characters from the start; npos for an empty text.
std::size_t last_character_index(const std::string& text);

}  // namespace qnutil::files
