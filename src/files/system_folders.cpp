// Operating-system version, the host's data folders and its install
// location in the registry.
#include <cstring>
#include <string>

#include "frame/export_guard.h"
#include "frame/message_box.h"
#include "platform/path_syntax.h"
#include "platform/system_info.h"
#include "qnutil/system.h"

namespace {

namespace platform = qnutil::platform;

// Folder buffers of the host hold MAX_PATH bytes.
constexpr std::size_t kFolderCapacity = 260;
const char kProgramFolders[][20] = {"Quarn Software GmbH", "Quarn +2011", "Programm"};
char g_empty_text[1] = "";

bool copy_folder(const std::string& folder, char* buf) {
  if (folder.size() >= kFolderCapacity) return false;
  std::memcpy(buf, folder.c_str(), folder.size() + 1);
  return true;
}

char* program_data_folder(char* buf) {
  unsigned major = 0, minor = 0;
  if (!platform::os_version(major, minor)) {
    // Only when the system's own version query fails; the warning names it
    // in the host's words.
    qnutil::frame::show_message_box("Fehler", "Konnte das Betriebssystem nicht feststellen.");
    return g_empty_text;
  }
  const std::size_t caller_length = strnlen(buf, kFolderCapacity);
  if (caller_length == kFolderCapacity) return nullptr;
  std::string folder(buf, caller_length);
  if (platform::program_data_base_folder(major, minor, folder) == platform::BaseFolder::unavailable)
    return nullptr;
  const char separator = platform::path_separator();
  const std::size_t last_separator = folder.rfind(separator);
  // A base without any separator gets none: "data" becomes
  // "dataQuarn Software GmbH...", as the host has always composed it.
  if (last_separator != std::string::npos && last_separator + 1 != folder.size())
    folder += separator;
  folder += kProgramFolders[0];
  for (std::size_t i = 1; i < std::size(kProgramFolders); ++i)
    folder.append(1, separator).append(kProgramFolders[i]);
  return copy_folder(folder, buf) ? buf : nullptr;
}

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_GetOperatingSystem(unsigned* major, unsigned* minor) {
  if (!major || !minor) return 0;
  // A failed query still reports success with the fields it left, as the
  // host expects; the folder rule below checks the query itself.
  platform::os_version(*major, *minor);
  return 1;
}

extern "C" QNUTIL_API char* QNUTIL_CALL QnUtil_GetProgPathAppData(char* buf) {
  if (!buf) return nullptr;
  return qnutil::frame::guard_export<char*>(nullptr, [&] { return program_data_folder(buf); });
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_GetProgPathRoamingAppData(char* buf) {
  if (!buf) return 0;
  return qnutil::frame::guard_export(0, [&] {
    std::string folder;
    return platform::roaming_app_data_folder(folder) && copy_folder(folder, buf) ? 1 : 0;
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL GetLocalMachineRegistryEntry(const char* subkey, int size,
                                                                   void* buf) {
  if (!subkey || !buf) return 0;
  return qnutil::frame::guard_export(0, [&] {
    std::string value;
    if (!platform::read_install_location(subkey, value)) return 0;
    if (value.empty() || value.size() > static_cast<std::size_t>(size < 0 ? 0 : size)) return 0;
    std::memcpy(buf, value.data(), value.size());
    return 1;
  });
}
