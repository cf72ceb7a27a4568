// The entry point of the modules whose property lists a host must judge;
// when one is accepted, running it leaves the image as it is.
#include "plugin_support.h"

QNUTIL_PLUGIN_ENTRY {}
