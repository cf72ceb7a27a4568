// The search for the host's configuration file "mb.ini" / "mb1.ini" …
// "mb9.ini" in the current folder, the folder named by the variable MB and
// the root of the system drive.
#pragma once

#include <string>

namespace qnutil::files {

// Path of the configuration file, or "" when none was found. Names are
// tried from mb9.ini down to mb1.ini, then mb.ini, then mb65535.ini
// downward, each in the three places in turn.
std::string find_configuration_file();

// Path of `name` in the folder named by the variable MB; false when the
// variable is unset or the file is not there.
bool find_in_mb_folder(const std::string& name, std::string& path);

}  // namespace qnutil::files
