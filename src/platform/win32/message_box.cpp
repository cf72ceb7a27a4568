#include "platform/message_box.h"

#include <windows.h>

namespace qnutil::platform {

void show_message_box(const char* caption, const char* text) {
  MessageBoxA(GetFocus(), text, *caption ? caption : nullptr, MB_OK);
}

}  // namespace qnutil::platform
