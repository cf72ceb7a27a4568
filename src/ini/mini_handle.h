// A mini handle is a CQnIniFile the library allocated for the caller.
#pragma once

#include "qnutil/ini.h"

namespace qnutil::ini {

inline const CQnIniFile* ini_file(MiniHandle handle) {
  return reinterpret_cast<const CQnIniFile*>(handle);
}

inline MiniHandle mini_handle(CQnIniFile* file) { return reinterpret_cast<MiniHandle>(file); }

}  // namespace qnutil::ini
