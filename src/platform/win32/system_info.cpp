#include "platform/system_info.h"

#include <windows.h>
#include <shlobj.h>

namespace qnutil::platform {

bool os_version(unsigned& major, unsigned& minor) {
  OSVERSIONINFOA info{};
  info.dwOSVersionInfoSize = sizeof info;
  static_assert(sizeof(OSVERSIONINFOA) == 148);
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
  // Deliberately the unmanifested view: the folder rule depends on it.
  const BOOL ok = GetVersionExA(&info);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
  major = info.dwMajorVersion;
  minor = info.dwMinorVersion;
  return ok != FALSE;
}

BaseFolder program_data_base_folder(unsigned major, unsigned minor, std::string& folder) {
  const bool keeps_common_folder = (major == 5 && minor <= 2) || (major == 6 && minor == 0);
  if (!keeps_common_folder) return BaseFolder::caller;
  char path[MAX_PATH] = "";
  if (FAILED(SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path)))
    return BaseFolder::unavailable;
  folder = path;
  return BaseFolder::system;
}

bool roaming_app_data_folder(std::string& folder) {
  char path[MAX_PATH] = "";
  if (FAILED(SHGetFolderPathA(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path)))
    return false;
  folder = path;
  return true;
}

bool read_install_location(const char* subkey, std::string& value) {
  HKEY key = nullptr;
  // KEY_READ (0x20019).
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, subkey, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  BYTE data[2048];
  DWORD length = sizeof data;
  const LONG status = RegQueryValueExA(key, "InstallLocation", nullptr, nullptr, data, &length);
  // The key stays open, as the host has always seen it: a handful of calls
  // per session, and closing it changes nothing the caller can observe.
  if (status != ERROR_SUCCESS) return false;
  value.assign(reinterpret_cast<const char*>(data), length);
  return true;
}

}  // namespace qnutil::platform
