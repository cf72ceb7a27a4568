// Message boxes of the library: shown through the host's handler when one
// is installed (QnUtil_SetMessageHandler), else by the platform.
#pragma once

namespace qnutil::frame {

// `caption` "" means a box without a caption.
void show_message_box(const char* caption, const char* text);

}  // namespace qnutil::frame
