// Writing a file whole or not at all. The new contents go to a temporary
// file beside the target ("<name>.qnutil-<process>-<n>.tmp"), which replaces
// the target only once every byte has reached the disk: readers and a
// crash at any moment see the old file or the new one, never a mix. The
// replacement keeps the target's permissions and owner, and a symbolic
// link stays a link to the replaced file. Temporary files that a killed
// process left behind are removed by the next replacement in their folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qnutil::platform {

class FileReplacement {
 public:
  // Creates the temporary file; opened() is false when the folder does not
  // exist or cannot be written, or the target is not a writable file.
  explicit FileReplacement(const char* path);
  // A replacement not committed is discarded: the target stays as it was.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  bool opened() const { return handle_ != kNoHandle || staged_; }
  // Appends bytes; false from the first failure on (the failure is kept,
  // and commit() then refuses).
  bool write(const void* bytes, std::size_t count);
  // For writers that change a file by its name (the profile functions):
  // the temporary file, holding a copy of the target, closed so that they
  // may rewrite it; "" when the copy failed. write() does not apply then.
  std::string stage();
  // Forces the contents to the disk and puts the file in the target's
  // place; false, with the target as it was, after any failure.
  bool commit();

 private:
  static constexpr std::intptr_t kNoHandle = -1;
  void discard();

  std::string target_;
  std::string temporary_;
  std::intptr_t handle_ = kNoHandle;
  bool failed_ = false;
  bool staged_ = false;
  // What the replacement keeps of the target (POSIX: mode, owner, group).
  bool target_existed_ = false;
  unsigned mode_ = 0, owner_ = 0, group_ = 0;
};

// The whole replacement at once.
inline bool replace_file(const char* path, std::string_view bytes) {
  FileReplacement replacement(path);
  return replacement.opened() && replacement.write(bytes.data(), bytes.size()) &&
         replacement.commit();
}

}  // namespace qnutil::platform
