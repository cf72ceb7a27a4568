/* The public C headers as an MSVC host's C compiler sees them. */
#include "qnutil/qnutil_win32.h"

int msvc_host_c_headers(void) { return QNUTIL_VERSION; }
