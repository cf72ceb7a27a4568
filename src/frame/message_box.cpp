#include "frame/message_box.h"

#include <mutex>

#include "platform/message_box.h"
#include "qnutil/frame.h"

namespace qnutil::frame {
namespace {

struct Handler {
  std::mutex lock;
  QnUtilMessageHandler function = nullptr;
  void* user = nullptr;
};

Handler& handler() {
  static Handler instance;
  return instance;
}

}  // namespace

void show_message_box(const char* caption, const char* text) {
  QnUtilMessageHandler function;
  void* user;
  {
    std::lock_guard guard(handler().lock);
    function = handler().function;
    user = handler().user;
  }
  if (function)
    function(caption, text, user);
  else
    platform::show_message_box(caption, text);
}

}  // namespace qnutil::frame

extern "C" QNUTIL_API void QNUTIL_CALL QnUtil_SetMessageHandler(QnUtilMessageHandler function,
                                                                void* user) {
  auto& h = qnutil::frame::handler();
  std::lock_guard guard(h.lock);
  h.function = function;
  h.user = function ? user : nullptr;
}
