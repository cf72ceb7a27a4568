// Reader of "PIPL" property-list resources, the description a filter
// plug-in module carries of itself. Portable: it works on the resource's
// bytes only, so it is also built and fuzzed where no module can be loaded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace qnutil::psfilter {

// Category and name a filter takes from its property lists. They belong to
// the filter rather than to one list: a list abandoned half-way keeps the
// texts it had already read, and a later list replaces only the texts it
// carries itself.
struct PiplTexts {
  std::string category;
  std::string name;
};

// Longest entry-point name kept; longer names are cut to this length.
inline constexpr std::size_t kMaxEntryNameLength = 255;

// Reads the property list of `size` bytes at `resource`. `entryKey` names
// the entry-point property of the running architecture ("wx86" or "8664").
// Returns the entry-point name when the list passes every check that needs
// no loaded module: list version 0, filter kind "8BFM" (if stated), an
// interface version of at most 4.0 (if stated), a non-empty entry name, and
// non-empty category and name in `texts`. Returns nothing for a list to
// skip, including one that claims more properties or longer data than the
// resource holds.
std::optional<std::string> read_pipl(const unsigned char* resource, std::size_t size,
                                     std::uint32_t entryKey, PiplTexts& texts);

}  // namespace qnutil::psfilter
