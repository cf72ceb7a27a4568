#include "ini/profile_query.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace qnutil::ini {
namespace {

// Windows keeps value lengths in 16 bits: a value of 65536 characters
// reads as empty, one of 65537 as its first character.
constexpr std::size_t kValueLengthModulus = 65536;

std::string_view strip_quotes(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front()) {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

// The default loses trailing spaces only; quotes and other blanks stay.
std::string_view trimmed_fallback(const char* fallback) {
  if (!fallback) return {};
  std::string_view text(fallback);
  const auto last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::uint32_t copy_value(std::string_view value, char* buffer, std::uint32_t size) {
  const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(value.size(), size - 1));
  if (count > 0) std::memcpy(buffer, value.data(), count);
  buffer[count] = '\0';
  return count;
}

// Names separated by terminators, as the list forms return them; empty
// names are left out because they would end the list early.
std::string section_list(const IniText* text) {
  std::string list;
  if (!text) return list;
  for (const IniSection& section : text->sections()) {
    const auto name = text->name(section);
    if (name.empty()) continue;
    list.append(name).push_back('\0');
  }
  return list;
}

std::string key_list(const IniText* text, std::string_view section_name) {
  std::string list;
  const IniSection* section = text ? text->find_section(trim_spaces(section_name)) : nullptr;
  if (!section) return list;
  for (std::uint32_t i = section->first_entry; i < section->end_entry; ++i) {
    const IniEntry& entry = text->entries()[i];
    if (!entry.has_value || entry.key_begin == entry.key_end) continue;
    list.append(text->key(entry)).push_back('\0');
  }
  return list;
}

// The list plus a final extra terminator; when that does not fit with room
// to spare, the list is cut and ends in two terminators.
std::uint32_t copy_list(const std::string& list, char* buffer, std::uint32_t size) {
  if (size == 0) return 0;
  if (list.empty()) {
    buffer[0] = '\0';
    return 0;
  }
  if (list.size() + 2 <= size) {
    std::memcpy(buffer, list.data(), list.size());
    buffer[list.size()] = '\0';
    return static_cast<std::uint32_t>(list.size());
  }
  if (size <= 2) {
    std::memset(buffer, 0, size);
    return 0;
  }
  std::memcpy(buffer, list.data(), size - 2);
  buffer[size - 2] = '\0';
  buffer[size - 1] = '\0';
  return size - 2;
}

}  // namespace

std::optional<std::string_view> find_profile_value(const IniText* text,
                                                   std::string_view section_name,
                                                   std::string_view key) {
  if (!text) return std::nullopt;
  const IniSection* section = text->find_section(trim_spaces(section_name));
  if (!section) return std::nullopt;
  const IniEntry* entry = text->find_key(*section, trim_spaces(key));
  if (!entry || !entry->has_value) return std::nullopt;
  std::string_view value = text->value(*entry);
  value = value.substr(0, value.find('\0'));  // the A functions see C strings
  value = strip_quotes(value);
  return value.substr(0, value.size() % kValueLengthModulus);
}

std::uint32_t query_profile_string(const IniText* text, const char* section, const char* key,
                                   const char* fallback, char* buffer, std::uint32_t size) {
  if (!buffer) return 0;
  if (!section) return copy_list(section_list(text), buffer, size);
  if (!key) return copy_list(key_list(text, section), buffer, size);
  if (size == 0) return 0;
  const auto value = find_profile_value(text, section, key);
  return copy_value(value ? *value : trimmed_fallback(fallback), buffer, size);
}

std::uint32_t parse_profile_int(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && std::strchr(" \t\n\v\f\r", text[i]) && text[i] != '\0') ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  std::uint32_t value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    value = value * 10u + static_cast<std::uint32_t>(text[i] - '0');
  }
  return negative ? 0u - value : value;
}

std::uint32_t query_profile_int(const IniText* text, const char* section, const char* key,
                                int fallback) {
  const auto value = section && key ? find_profile_value(text, section, key) : std::nullopt;
  if (!value || value->empty()) return static_cast<std::uint32_t>(fallback);
  return parse_profile_int(*value);
}

}  // namespace qnutil::ini
