#include "gdiplus/gdiplus_sdk.h"

namespace {

// Started once per process by the host's start-up; not locked, as the
// session is opened and closed from one thread.
ULONG_PTR session_token = 0;
bool session_started = false;

}  // namespace

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusInit(void) {
  if (session_started) return 1;
  const Gdiplus::GdiplusStartupInput input;  // version 1, no callback, background thread
  Gdiplus::GdiplusStartup(&session_token, &input, nullptr);
  session_started = true;
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusExit(void) {
  Gdiplus::GdiplusShutdown(session_token);
  session_started = false;
  return 1;
}

extern "C" QNUTIL_API int QNUTIL_CALL gdiPlusLoad(void) { return 1; }
