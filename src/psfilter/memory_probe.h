// Whether memory a plug-in hands in may be read or written, without
// touching it.
#pragma once

#include <cstddef>

namespace qnutil::psfilter {

bool readable(const void* address, std::size_t size);
bool writable(const void* address);

}  // namespace qnutil::psfilter
