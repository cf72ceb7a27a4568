#include "psfilter/pipl_parser.h"

#include <algorithm>
#include <cstring>

#include "psfilter/four_char_code.h"

namespace qnutil::psfilter {
namespace {

// Leading word, list version, property count.
constexpr std::size_t kListHeaderSize = 10;
// Vendor, key, id, data length.
constexpr std::size_t kPropertyHeaderSize = 16;
constexpr std::uint16_t kLatestMajorVersion = 4;

std::uint32_t read_u32(const unsigned char* bytes) {
  return std::uint32_t{bytes[0]} | (std::uint32_t{bytes[1]} << 8) |
         (std::uint32_t{bytes[2]} << 16) | (std::uint32_t{bytes[3]} << 24);
}

std::uint16_t read_u16(const unsigned char* bytes) {
  return static_cast<std::uint16_t>(bytes[0] | (bytes[1] << 8));
}

// Characters up to the first NUL, as a zero-filled text buffer would hold them.
std::string text_of(const unsigned char* bytes, std::size_t count) {
  const auto* begin = reinterpret_cast<const char*>(bytes);
  return std::string(begin, std::find(begin, begin + count, '\0'));
}

// A Pascal string: length byte, then the characters. The text lives in a
// buffer of the property's length, so a length byte claiming more than the
// property holds is cut to what fits before the buffer's terminator.
std::string pascal_text(const unsigned char* data, std::size_t length) {
  if (length == 0) return {};
  return text_of(data + 1, std::min<std::size_t>(data[0], length - 1));
}

// Interface versions above 4.0 are newer than this host: the minor word
// comes first in the data, the major word second.
bool version_supported(const unsigned char* data) {
  const std::uint16_t minor = read_u16(data);
  const std::uint16_t major = read_u16(data + 2);
  return major < kLatestMajorVersion || (major == kLatestMajorVersion && minor == 0);
}

}  // namespace

std::optional<std::string> read_pipl(const unsigned char* resource, std::size_t size,
                                     std::uint32_t entryKey, PiplTexts& texts) {
  if (!resource) return std::nullopt;
  // The list starts at the resource's first 4-byte boundary.
  const std::size_t misalignment = (0u - reinterpret_cast<std::uintptr_t>(resource)) & 3u;
  if (size < misalignment + kListHeaderSize) return std::nullopt;
  const unsigned char* position = resource + misalignment;
  const unsigned char* const end = resource + size;
  if (read_u32(position + 2) != 0) return std::nullopt;
  const auto count = static_cast<std::int32_t>(read_u32(position + 6));
  position += kListHeaderSize;

  std::string entry;
  for (std::int32_t index = 0; index < count; ++index) {
    if (static_cast<std::size_t>(end - position) < kPropertyHeaderSize) return std::nullopt;
    const std::uint32_t key = read_u32(position + 4);
    const std::uint32_t length = read_u32(position + 12);
    const unsigned char* const data = position + kPropertyHeaderSize;
    if (length > static_cast<std::size_t>(end - data)) return std::nullopt;

    if (key == kKindKey) {
      // A kind too short to hold a code cannot be a filter either.
      if (length < 4 || read_u32(data) != kFilterKind) return std::nullopt;
    } else if (key == kVersionKey) {
      if (length < 4 || !version_supported(data)) return std::nullopt;
    } else if (key == entryKey) {
      entry = text_of(data, std::min<std::size_t>(length, kMaxEntryNameLength));
    } else if (key == kCategoryKey) {
      texts.category = pascal_text(data, length);
    } else if (key == kNameKey) {
      texts.name = pascal_text(data, length);
    }
    // "mode" and every other key are not needed to run a filter.
    position = data + length;
  }

  if (entry.empty() || texts.category.empty() || texts.name.empty()) return std::nullopt;
  return entry;
}

}  // namespace qnutil::psfilter
