#include "ini/profile_edit.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace qnutil::ini {
namespace {

constexpr std::string_view kLineBreak = "\r\n";

using Range = std::pair<std::uint32_t, std::uint32_t>;

std::string without_ranges(const std::string& bytes, const std::vector<Range>& removed) {
  std::string out;
  out.reserve(bytes.size());
  std::uint32_t kept_from = 0;
  for (const auto& [begin, end] : removed) {
    out.append(bytes, kept_from, begin - kept_from);
    kept_from = end;
  }
  out.append(bytes, kept_from, std::string::npos);
  return out;
}

std::string remove_section(const IniText& text, const IniSection& section) {
  std::vector<Range> removed{{section.header_begin, section.header_next}};
  for (std::uint32_t i = section.first_entry; i < section.end_entry; ++i) {
    const IniEntry& entry = text.entries()[i];
    removed.emplace_back(entry.line_begin, entry.next_line);
  }
  return without_ranges(text.bytes(), removed);
}

std::string key_line(std::string_view key, std::string_view value) {
  std::string line;
  line.reserve(key.size() + value.size() + 3);
  line.append(key).append("=").append(value).append(kLineBreak);
  return line;
}

// Inserts `line` after the line [line_end, next): when that line has no
// break of its own (the end of the file) it gets one first.
std::string insert_after(const std::string& bytes, std::uint32_t line_end, std::uint32_t next,
                         const std::string& line) {
  std::string out(bytes, 0, next);
  if (next == line_end) out.append(kLineBreak);
  out.append(line).append(bytes, next, std::string::npos);
  return out;
}

std::string append_section(const std::string& bytes, std::string_view section, std::string_view key,
                           std::string_view value) {
  std::string out(bytes);
  if (!out.empty() && out.back() != '\n' && out.back() != '\r') out.append(kLineBreak);
  out.append("[").append(section).append("]").append(kLineBreak).append(key_line(key, value));
  return out;
}

}  // namespace

std::string edit_profile(const IniText& text, std::string_view section_name, const char* key,
                         const char* value) {
  const std::string& bytes = text.bytes();
  section_name = trim_spaces(section_name);
  const IniSection* section = text.find_section(section_name);
  if (!key) return section ? remove_section(text, *section) : bytes;

  const std::string_view key_name = trim_spaces(key);
  const IniEntry* entry = section ? text.find_key(*section, key_name) : nullptr;
  if (!value) return entry ? without_ranges(bytes, {{entry->line_begin, entry->next_line}}) : bytes;
  if (!section) return append_section(bytes, section_name, key_name, value);

  if (entry) {
    // A bare entry gains its '=' after the name.
    std::string out(bytes, 0, entry->has_value ? entry->value_begin : entry->key_end);
    if (!entry->has_value) out.push_back('=');
    out.append(value);
    if (entry->next_line == entry->line_end) {
      out.append(kLineBreak);
    } else {
      out.append(bytes, entry->line_end, std::string::npos);
    }
    return out;
  }
  if (section->end_entry > section->first_entry) {
    const IniEntry& last = text.entries()[section->end_entry - 1];
    return insert_after(bytes, last.line_end, last.next_line, key_line(key_name, value));
  }
  return insert_after(bytes, section->header_end, section->header_next, key_line(key_name, value));
}

}  // namespace qnutil::ini
