#include "platform/codepage.h"

#include <windows.h>

namespace qnutil::platform {

bool is_lead_byte(unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; }

}  // namespace qnutil::platform
