// How the tool reports what went wrong: one line on stderr naming the
// command, the file (or argument) and the reason, and exit status 1.
#pragma once

#include <string>

namespace qnutil_tool {

int fail(const char* command, const std::string& subject, const std::string& reason);

// Why `path` cannot be opened for reading; "" when it can.
std::string read_problem(const std::string& path);

// Why a file cannot be written at `path`: a missing folder, a folder in
// the way, no permission; otherwise that the write itself failed (a full
// disk, most likely).
std::string write_problem(const std::string& path);

}  // namespace qnutil_tool
