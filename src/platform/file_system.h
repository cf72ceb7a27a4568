// Files, the current folder and environment variables as the file search
// and the fio layer need them.
#pragma once

#include <cstdio>
#include <string>

namespace qnutil::platform {

// Opens a C stream; `mode` uses the run-time letters "r", "w", "a", "+",
// "b" and "t" (text), the last meaning the platform's default where there
// is no text/binary distinction.
std::FILE* open_stream(const char* path, const char* mode);

// What a newline becomes in a file written in text mode: "\r\n" on
// Windows, "\n" elsewhere.
extern const char kTextLineEnd[];

// True when `path` names an existing file or folder.
bool path_exists(const char* path);

// The process's current folder; false when it cannot be read.
bool current_folder(std::string& folder);

// The value of environment variable `name`; false when it is not set.
bool environment_variable(const char* name, std::string& value);

}  // namespace qnutil::platform
