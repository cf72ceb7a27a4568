// The host's calculator component, reached through COM on Windows. The
// caller keeps the connection (the module object does) and passes it in.
#pragma once

#include <string>

namespace qnutil::platform {

// A new connection: the component's calculator interface, or null when it
// cannot be reached. POSIX: there is no component, always null.
void* calculator_connect();

// The component's operations on a connection; each returns false when the
// call failed.
bool calculator_initialise(void* calculator, long argument);
bool calculator_evaluate(void* calculator, const char* expression, long argument1, long argument2);
// `text` is set only when the call succeeded and returned a string.
bool calculator_error_text(void* calculator, long argument1, long argument2, long argument3,
                           std::string& text);
bool calculator_text_to_number(void* calculator, const char* text, long mode, double& value,
                               long& status);
bool calculator_number_to_text(void* calculator, double value, long a, long b, long c,
                               std::string& text, long& status);

}  // namespace qnutil::platform
