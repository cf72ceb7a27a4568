// The module object: state that lives as long as the library is loaded.
#pragma once

#include <cstdio>
#include <mutex>

namespace qnutil::frame {

struct Module {
  void* calculator = nullptr;        // calculator COM interface, null until first use
  unsigned char writeToLogfile = 0;  // non-zero: messages go to the log file
  std::FILE* logFile = nullptr;      // open log file, or null
  unsigned reserved = 0;
  // The log switch and file are shared by all threads of the process.
  std::recursive_mutex lock;
};

Module& module();

// Called once when the library is loaded / unloaded (module_entry*.cpp:
// DllMain with the DLL's instance handle, or the ELF constructor and
// destructor with none).
void module_load(void* instance);
void module_unload();

}  // namespace qnutil::frame
