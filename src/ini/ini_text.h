// The structure of an INI file as the Windows profile functions see it,
// indexed over the file's unchanged bytes so that reads need no copies and
// writes can edit the text in place.
//
// Line rules: a line ends at CR, LF or CRLF. After leading blanks (space,
// TAB, VT) a line starting with '[' is a section header whose name runs to
// the first ']' (or the end of the line when there is none), trimmed of
// blanks. Inside a section, a line starting with ';' is a comment, a line
// with '=' is a key (trimmed text before the first '=') with its value
// (trimmed text after it), and any other non-blank line is a bare entry
// that has a name but no value. Lines before the first header belong to no
// section and are never seen by lookups.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qnutil::ini {

// Blanks the profile functions trim around names and values.
inline bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\v'; }

// Name comparison of the profile functions: case-blind for the letters of
// Windows-1252 (ASCII and the accented Latin letters).
bool names_equal(std::string_view a, std::string_view b);

// Names given by callers lose leading and trailing spaces (only spaces).
std::string_view trim_spaces(std::string_view name);

struct IniEntry {
  std::uint32_t line_begin;  // first byte of the line
  std::uint32_t line_end;    // end of the line's text, before its break
  std::uint32_t next_line;   // first byte after the line break
  std::uint32_t key_begin, key_end;
  std::uint32_t value_begin, value_end;  // trimmed value; empty for bare entries
  bool has_value;                        // false for a bare entry (no '=')
};

struct IniSection {
  std::uint32_t header_begin, header_end, header_next;  // the header line
  std::uint32_t name_begin, name_end;
  std::uint32_t first_entry, end_entry;  // range in IniText::entries()
};

class IniText {
 public:
  // Indexes `bytes`; files of 4 GiB and more are not indexed (empty).
  explicit IniText(std::string bytes);

  const std::string& bytes() const { return bytes_; }
  const std::vector<IniSection>& sections() const { return sections_; }
  const std::vector<IniEntry>& entries() const { return entries_; }

  std::string_view text(std::uint32_t begin, std::uint32_t end) const {
    return std::string_view(bytes_).substr(begin, end - begin);
  }
  std::string_view name(const IniSection& section) const {
    return text(section.name_begin, section.name_end);
  }
  std::string_view key(const IniEntry& entry) const { return text(entry.key_begin, entry.key_end); }
  std::string_view value(const IniEntry& entry) const {
    return text(entry.value_begin, entry.value_end);
  }

  // The first section of that name (only the first of duplicates counts),
  // or null. `name` is compared as it stands.
  const IniSection* find_section(std::string_view name) const;
  // The first entry of that name in `section`, or null. A bare entry found
  // first hides a later key of the same name.
  const IniEntry* find_key(const IniSection& section, std::string_view key) const;

 private:
  void index();
  void index_line(std::uint32_t begin, std::uint32_t end, std::uint32_t next);

  std::string bytes_;
  std::vector<IniSection> sections_;
  std::vector<IniEntry> entries_;
  // Folded section name -> index of its first section.
  std::unordered_map<std::string, std::uint32_t> first_section_;
};

}  // namespace qnutil::ini
