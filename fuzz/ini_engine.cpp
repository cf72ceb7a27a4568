// Arbitrary bytes as an INI file: every read form over the names the file
// itself contains, every buffer size class, and an edit that must read
// back. The number-list and GUID parsers get the same bytes as text.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "ini/ini_text.h"
#include "ini/number_list.h"
#include "ini/profile_edit.h"
#include "ini/profile_query.h"
#include "platform/guid_text.h"

using namespace qnutil::ini;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const IniText text(bytes);

  char buffer[64];
  for (const std::uint32_t n : {0u, 1u, 2u, 3u, 17u, 64u}) {
    query_profile_string(&text, nullptr, nullptr, "d", buffer, n);
  }
  for (const IniSection& section : text.sections()) {
    const std::string name(text.name(section));
    query_profile_string(&text, name.c_str(), nullptr, "d", buffer, sizeof buffer);
    for (std::uint32_t i = section.first_entry; i < section.end_entry; ++i) {
      const std::string key(text.key(text.entries()[i]));
      query_profile_string(&text, name.c_str(), key.c_str(), "  d  ", buffer,
                           1 + i % sizeof buffer);
      query_profile_int(&text, name.c_str(), key.c_str(), 7);
    }
  }

  // A clean value written anywhere reads back.
  const std::string edited = edit_profile(text, "fz", "key", "val");
  const IniText reread(edited);
  const auto value = find_profile_value(&reread, "fz", "key");
  if (!value || *value != "val") std::abort();
  edit_profile(text, "fz", "key", nullptr);
  edit_profile(text, "fz", nullptr, nullptr);

  const std::string text_copy = bytes.substr(0, bytes.find('\0'));
  std::vector<double> numbers(8);
  parse_number_list(text_copy.c_str(), numbers.data(), static_cast<int>(numbers.size()));
  qnutil::platform::GuidBytes guid;
  if (qnutil::platform::guid_from_text(text_copy.c_str(), guid)) {
    char round_trip[qnutil::platform::kGuidTextSize];
    qnutil::platform::guid_to_text(guid, round_trip);
  }
  return 0;
}
