#include "platform/calculator.h"

namespace qnutil::platform {

// The calculator is a Windows COM component of the host; a POSIX process
// never has one, so every connection attempt fails and the operations are
// never reached.
bool calculator_connect() { return false; }
bool calculator_initialise(long) { return false; }
bool calculator_evaluate(const char*, long, long) { return false; }
bool calculator_error_text(long, long, long, std::string&) { return false; }
bool calculator_text_to_number(const char*, long, double&, long&) { return false; }
bool calculator_number_to_text(double, long, long, long, std::string&, long&) { return false; }

}  // namespace qnutil::platform
