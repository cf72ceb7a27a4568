#include "frame/module_strings.h"

#include "platform/resources.h"

namespace qnutil::frame {

std::string module_string(unsigned id) {
  std::string text;
  if (!platform::load_module_string(id, text)) text.clear();
  return text;
}

}  // namespace qnutil::frame
