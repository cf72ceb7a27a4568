#include "ini/ini_text.h"

#include <array>
#include <cstring>
#include <limits>

namespace qnutil::ini {
namespace {

// Lower-case mapping of Windows-1252: ASCII, the accented capitals
// 0xC0-0xDE (without the multiplication sign 0xD7) and the four capitals
// of the 0x80 row that have lower-case partners.
constexpr std::array<unsigned char, 256> make_fold_table() {
  std::array<unsigned char, 256> table{};
  for (int c = 0; c < 256; ++c) table[c] = static_cast<unsigned char>(c);
  for (int c = 'A'; c <= 'Z'; ++c) table[c] = static_cast<unsigned char>(c + 32);
  for (int c = 0xC0; c <= 0xDE; ++c) {
    if (c != 0xD7) table[c] = static_cast<unsigned char>(c + 32);
  }
  table[0x8A] = 0x9A;
  table[0x8C] = 0x9C;
  table[0x8E] = 0x9E;
  table[0x9F] = 0xFF;
  return table;
}
constexpr std::array<unsigned char, 256> kFold = make_fold_table();

std::string folded(std::string_view name) {
  std::string out(name);
  for (char& c : out) c = static_cast<char>(kFold[static_cast<unsigned char>(c)]);
  return out;
}

}  // namespace

bool names_equal(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (kFold[static_cast<unsigned char>(a[i])] != kFold[static_cast<unsigned char>(b[i])]) {
      return false;
    }
  }
  return true;
}

std::string_view trim_spaces(std::string_view name) {
  const auto first = name.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return name.substr(first, name.find_last_not_of(' ') - first + 1);
}

IniText::IniText(std::string bytes) : bytes_(std::move(bytes)) {
  if (bytes_.size() < std::numeric_limits<std::uint32_t>::max()) index();
}

void IniText::index() {
  const char* data = bytes_.data();
  const auto size = static_cast<std::uint32_t>(bytes_.size());
  std::uint32_t pos = 0;
  while (pos < size) {
    // One search for LF per run; CRs before it split lines of their own, so
    // CR-only files are scanned in one pass as well.
    const void* lf = std::memchr(data + pos, '\n', size - pos);
    const auto lf_pos = lf ? static_cast<std::uint32_t>(static_cast<const char*>(lf) - data) : size;
    while (const void* cr = std::memchr(data + pos, '\r', lf_pos - pos)) {
      const auto cr_pos = static_cast<std::uint32_t>(static_cast<const char*>(cr) - data);
      const bool crlf = cr_pos + 1 == lf_pos && lf_pos < size;
      const std::uint32_t next = crlf ? lf_pos + 1 : cr_pos + 1;
      index_line(pos, cr_pos, next);
      pos = next;
      if (next > lf_pos) break;
    }
    if (pos > lf_pos) continue;  // the LF ended a CRLF pair
    const std::uint32_t next = lf_pos < size ? lf_pos + 1 : size;
    index_line(pos, lf_pos, next);
    pos = lf_pos + 1;
  }
  if (!sections_.empty()) sections_.back().end_entry = static_cast<std::uint32_t>(entries_.size());
}

void IniText::index_line(std::uint32_t begin, std::uint32_t end, std::uint32_t next) {
  const char* data = bytes_.data();
  std::uint32_t p = begin;
  while (p < end && is_blank(data[p])) ++p;
  if (p == end) return;
  auto trim_end = [&](std::uint32_t from, std::uint32_t to) {
    while (to > from && is_blank(data[to - 1])) --to;
    return to;
  };
  if (data[p] == '[') {
    std::uint32_t name_begin = p + 1;
    const void* close = std::memchr(data + name_begin, ']', end - name_begin);
    std::uint32_t name_end =
        close ? static_cast<std::uint32_t>(static_cast<const char*>(close) - data) : end;
    while (name_begin < name_end && is_blank(data[name_begin])) ++name_begin;
    name_end = trim_end(name_begin, name_end);
    const auto entry_index = static_cast<std::uint32_t>(entries_.size());
    if (!sections_.empty()) sections_.back().end_entry = entry_index;
    sections_.push_back({begin, end, next, name_begin, name_end, entry_index, entry_index});
    first_section_.try_emplace(folded(name(sections_.back())),
                               static_cast<std::uint32_t>(sections_.size() - 1));
    return;
  }
  if (sections_.empty() || data[p] == ';') return;
  const void* eq = std::memchr(data + p, '=', end - p);
  if (!eq) {
    entries_.push_back({begin, end, next, p, trim_end(p, end), end, end, false});
    return;
  }
  const auto eq_pos = static_cast<std::uint32_t>(static_cast<const char*>(eq) - data);
  std::uint32_t value_begin = eq_pos + 1;
  while (value_begin < end && is_blank(data[value_begin])) ++value_begin;
  entries_.push_back(
      {begin, end, next, p, trim_end(p, eq_pos), value_begin, trim_end(value_begin, end), true});
}

const IniSection* IniText::find_section(std::string_view name) const {
  const auto found = first_section_.find(folded(name));
  return found == first_section_.end() ? nullptr : &sections_[found->second];
}

const IniEntry* IniText::find_key(const IniSection& section, std::string_view key) const {
  for (std::uint32_t i = section.first_entry; i < section.end_entry; ++i) {
    const IniEntry& entry = entries_[i];
    if (names_equal(this->key(entry), key)) return &entry;
  }
  return nullptr;
}

}  // namespace qnutil::ini
