#include "frame/module_strings.h"

#include "platform/resources.h"

namespace qnutil::frame {

// The DLL's string-table resource; builds without resources carry the
// table itself.
std::string module_string(unsigned id) {
  std::string text;
  if (platform::load_module_string(id, text)) return text;
  switch (id) {
    case IDS_NO_CALCULATOR: return TEXT_NO_CALCULATOR;
    case IDS_LOGFILE_SUBSTITUTED: return TEXT_LOGFILE_SUBSTITUTED;
    case IDS_NO_LOGFILE: return TEXT_NO_LOGFILE;
    case IDS_NO_MB_INI: return TEXT_NO_MB_INI;
    case IDS_INI_ENTRY_MISSING: return TEXT_INI_ENTRY_MISSING;
    default: return {};
  }
}

}  // namespace qnutil::frame
