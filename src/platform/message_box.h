// The default presentation of a message box when the host installed no
// message handler.
#pragma once

namespace qnutil::platform {

// Windows: a modal box with an OK button, owned by the window that has the
// keyboard focus (caption null when `caption` is empty). POSIX: one line on
// stderr.
void show_message_box(const char* caption, const char* text);

}  // namespace qnutil::platform
