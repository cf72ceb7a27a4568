// The host's calculator component, reached through COM on Windows. The
// connection is kept in the module object (frame::Module::calculator).
#pragma once

#include <string>

namespace qnutil::platform {

// Connects on first use; true while a calculator interface is held.
// POSIX: there is no component, always false.
bool calculator_connect();

// The component's operations; each returns false when the call failed.
// Only valid after calculator_connect() returned true.
bool calculator_initialise(long argument);
bool calculator_evaluate(const char* expression, long argument1, long argument2);
// `text` is set only when the call succeeded and returned a string.
bool calculator_error_text(long argument1, long argument2, long argument3, std::string& text);
bool calculator_text_to_number(const char* text, long mode, double& value, long& status);
bool calculator_number_to_text(double value, long a, long b, long c, std::string& text,
                               long& status);

}  // namespace qnutil::platform
