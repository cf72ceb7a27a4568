// Facts about the running system: version, data folders, the registry.
#pragma once

#include <string>

namespace qnutil::platform {

// Windows: GetVersionExA (what the system reports to unmanifested
// programs). POSIX: the kernel release from uname, "major.minor...".
bool os_version(unsigned& major, unsigned& minor);

enum class BaseFolder {
  caller,      // the caller's own base folder is used
  system,      // `folder` holds the system's common application-data folder
  unavailable  // the system folder was required but could not be queried
};
// Where the host's program-data folder lives on this version. Windows 5.0
// to 5.2 and 6.0 keep it below the common application-data folder; later
// versions (and POSIX, whose kernel release numbers say nothing about the
// folder layout) leave the base folder to the caller.
BaseFolder program_data_base_folder(unsigned major, unsigned minor, std::string& folder);

// The user's roaming application-data folder. Windows: the shell folder
// CSIDL_APPDATA. POSIX: $XDG_DATA_HOME if absolute, else $HOME/.local/share.
bool roaming_app_data_folder(std::string& folder);

// Reads the value "InstallLocation" of `subkey` in the local-machine hive
// into `value`, all its bytes (the terminator included when stored). Values
// longer than 2048 bytes fail. POSIX: always false.
bool read_install_location(const char* subkey, std::string& value);

}  // namespace qnutil::platform
