#include "platform/codepage.h"

namespace qnutil::platform {

bool is_lead_byte(unsigned char) { return false; }

}  // namespace qnutil::platform
