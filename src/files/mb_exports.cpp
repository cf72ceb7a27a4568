// QnUtil_MB_*: finding files and folders through the host's configuration
// file and reading its values.
#include <cstring>
#include <string>

#include "files/config_search.h"
#include "files/path_pieces.h"
#include "frame/export_guard.h"
#include "frame/module_strings.h"
#include "frame/text_format.h"
#include "ini/ini_access.h"
#include "ini/multibyte_copy.h"
#include "platform/file_system.h"
#include "qnutil/files.h"
#include "qnutil/frame.h"

namespace {

using qnutil::files::compose_path;

constexpr char kSourceUnit[] = "qnutilmisc";
constexpr int kLineNoConfiguration = 75;
constexpr int kLineNoEntry = 92;

// `out` holds QNUTIL_PATH_SIZE bytes.
void copy_path(char* out, const std::string& path) {
  qnutil::files::copy_cut(out, QNUTIL_PATH_SIZE, path.data(), path.size());
}

bool is_empty(const char* text) { return text == nullptr || *text == '\0'; }

// Looks for `name` in each ';'-separated folder of `value`, in order;
// empty folder names are skipped.
bool find_in_listed_folders(const std::string& value, const char* name, std::string& path) {
  std::size_t begin = 0;
  while (begin <= value.size()) {
    std::size_t end = value.find(';', begin);
    if (end == std::string::npos) end = value.size();
    if (end > begin) {
      const std::string folder = value.substr(begin, end - begin);
      path = compose_path("", folder.c_str(), name);
      if (qnutil::platform::path_exists(path.c_str())) return true;
    }
    begin = end + 1;
  }
  return false;
}

int search_file(const char* section, const char* key, const char* name, char* out) {
  if (name == nullptr) {
    const std::string configuration = qnutil::files::find_configuration_file();
    if (configuration.empty()) return -1;
    copy_path(out, configuration);
    return 0;
  }
  std::string folder;
  if (qnutil::platform::path_exists(name) && qnutil::platform::current_folder(folder)) {
    copy_path(out, compose_path("", folder.c_str(), name));
    return 0;
  }
  if (std::string path; qnutil::files::find_in_mb_folder(name, path)) {
    copy_path(out, path);
    return 0;
  }
  const std::string configuration = qnutil::files::find_configuration_file();
  if (configuration.empty()) return -1;
  // Deliberately the configuration file itself, not `name`: hosts ask this
  // way for the file that lists the search folders.
  if (is_empty(section) || is_empty(key)) {
    copy_path(out, compose_path("", "", configuration.c_str()));
    return 0;
  }
  // A missing key reads as the marker text, which is then looked up as one
  // folder name like any other value.
  const std::string value = qnutil::ini::read_value_or_marker(configuration.c_str(), section, key);
  if (value.empty()) return -1;
  std::string path;
  if (!find_in_listed_folders(value, name, path)) return -1;
  copy_path(out, path);
  return 0;
}

const char* or_empty(const char* text) { return text != nullptr ? text : ""; }

int search_folder(const char* section, const char* key, char* out) {
  char configuration[QNUTIL_PATH_SIZE];
  if (search_file(nullptr, nullptr, nullptr, configuration) != 0) {
    const std::string text = qnutil::frame::module_string(IDS_NO_MB_INI);
    QnUtil_Message(text.c_str(), nullptr, nullptr, kSourceUnit, kLineNoConfiguration);
    return -1;
  }
  const std::string value = qnutil::ini::read_value_or_marker(configuration, section, key);
  if (value.empty()) {
    const std::string text =
        qnutil::frame::format_text(qnutil::frame::module_string(IDS_INI_ENTRY_MISSING).c_str(),
                                   or_empty(section), or_empty(key), configuration);
    QnUtil_Message(text.c_str(), nullptr, nullptr, kSourceUnit, kLineNoEntry);
    return -1;
  }
  copy_path(out, compose_path("", "", value.c_str()));
  return 0;
}

int read_string(const char* file, const char* section, const char* key, char* buf, int* len) {
  const std::string value = qnutil::ini::read_value_or_marker(file, section, key);
  if (value.empty()) return 6;
  const long long room = static_cast<long long>(*len) - 1;
  if (room > static_cast<long long>(value.size())) {
    qnutil::ini::copy_multibyte_bytes(buf, value.c_str(), static_cast<std::size_t>(room));
  } else {
    // The caller learns the length, and still gets the whole value: hosts
    // size their buffers for the longest value they expect.
    *len = static_cast<int>(value.size());
    std::memcpy(buf, value.c_str(), value.size() + 1);
  }
  return 0;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_MB_SucheDatei(const char* section, const char* key,
                                                           const char* name, char* out) {
  if (out == nullptr) return -1;
  return qnutil::frame::guard_export(-1, [&] { return search_file(section, key, name, out); });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_MB_SuchePfad(const char* section, const char* key,
                                                          char* out) {
  if (out == nullptr) return -1;
  return qnutil::frame::guard_export(-1, [&] { return search_folder(section, key, out); });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_MB_IniReadString(const char* file, const char* section,
                                                              const char* key, char* buf,
                                                              int* len) {
  if (file == nullptr || buf == nullptr || len == nullptr) return -1;
  return qnutil::frame::guard_export(-1, [&] { return read_string(file, section, key, buf, len); });
}
