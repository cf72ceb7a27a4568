#include "platform/calculator.h"

namespace qnutil::platform {

// The calculator is a Windows COM component of the host; a POSIX process
// never has one, so every connection attempt fails and the operations are
// never reached.
void* calculator_connect() { return nullptr; }
bool calculator_initialise(void*, long) { return false; }
bool calculator_evaluate(void*, const char*, long, long) { return false; }
bool calculator_error_text(void*, long, long, long, std::string&) { return false; }
bool calculator_text_to_number(void*, const char*, long, double&, long&) { return false; }
bool calculator_number_to_text(void*, double, long, long, long, std::string&, long&) {
  return false;
}

}  // namespace qnutil::platform
