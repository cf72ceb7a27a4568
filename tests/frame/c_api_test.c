/* Compiled as strict C: the public headers must be usable from C. */
#include "qnutil/qnutil_win32.h"

static void QNUTIL_CALL count_boxes(const char* caption, const char* text, void* user) {
  (void)caption;
  (void)text;
  ++*(int*)user;
}

int qnutil_c_api_smoke(void) {
  int boxes = 0;
  if (QnUtil_GetVersion() != QNUTIL_VERSION) return -1;
  QnUtil_SetMessageHandler(count_boxes, &boxes);
  QnUtil_Message("from C", 0, 0, 0, 0);
  QnUtil_SetMessageHandler(0, 0);
  return boxes;
}
