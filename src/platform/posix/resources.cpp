#include "platform/resources.h"

#include "frame/string_table.h"

namespace qnutil::platform {

bool load_module_string(unsigned id, std::string& out) {
  switch (id) {
    case IDS_NO_CALCULATOR: out = TEXT_NO_CALCULATOR; return true;
    case IDS_LOGFILE_SUBSTITUTED: out = TEXT_LOGFILE_SUBSTITUTED; return true;
    case IDS_NO_LOGFILE: out = TEXT_NO_LOGFILE; return true;
    case IDS_NO_MB_INI: out = TEXT_NO_MB_INI; return true;
    case IDS_INI_ENTRY_MISSING: out = TEXT_INI_ENTRY_MISSING; return true;
    default: return false;
  }
}

}  // namespace qnutil::platform
