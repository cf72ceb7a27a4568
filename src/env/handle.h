// The environment handle behind the opaque EnvHandle of the C interface.
#pragma once

#include "env/tree.h"
#include "qnutil/env.h"

struct EnvHandle {
  bool isSub = false;
  // A root owns its top-level list; a sub-environment views the subtree of
  // its anchor and remembers the handle it was opened from.
  qnutil::env::ElementList* top = nullptr;
  qnutil::env::Element* anchor = nullptr;
  EnvHandle* opener = nullptr;
  // Working registers of the lookup: the element found last and its status.
  qnutil::env::Element* current = nullptr;
  int status = ENV_OK;
  int openSubs = 0;
  long envId = 0;
  EnvHandle* fallback = nullptr;
};

namespace qnutil::env {

// Reports an internal fault through the message facility, naming this
// unit and the reporting line.
void report(const char* text, int line, const char* extra = nullptr);

// Null-handle check shared by every export: reports and gives false.
bool valid_handle(const EnvHandle* env, int line);

// Sub-environment anchored at element, counted as a dependant of `from`.
EnvHandle* open_sub(EnvHandle* from, Element* element);

}  // namespace qnutil::env
