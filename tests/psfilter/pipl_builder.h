// Builds "PIPL" property-list bytes the way a resource compiler lays them
// out: little-endian integers, four-character codes byte-reversed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qnutil_test {

class PiplBuilder {
 public:
  // Appends a property; `declaredLength` < 0 declares the data's real size.
  PiplBuilder& property(const char (&key)[5], const std::string& data, std::int64_t declaredLength = -1) {
    put_code(properties_, "8BIM");
    put_code(properties_, key);
    put_u32(properties_, 0);
    put_u32(properties_, static_cast<std::uint32_t>(declaredLength < 0 ? data.size() : declaredLength));
    properties_.insert(properties_.end(), data.begin(), data.end());
    ++count_;
    return *this;
  }
  PiplBuilder& kind(const char (&code)[5]) { return property("kind", code_bytes(code)); }
  PiplBuilder& version(std::uint16_t major, std::uint16_t minor) {
    return property("vers", std::string{char(minor & 0xFF), char(minor >> 8), char(major & 0xFF), char(major >> 8)});
  }
  // Entry-point name as a NUL-padded C string.
  PiplBuilder& entry(const char (&key)[5], const std::string& name) {
    std::string data = name + '\0';
    data.resize((data.size() + 3) / 4 * 4, '\0');
    return property(key, data);
  }
  PiplBuilder& pascal(const char (&key)[5], const std::string& text) {
    std::string data = char(text.size()) + text;
    data.resize((data.size() + 3) / 4 * 4, '\0');
    return property(key, data);
  }
  // A complete filter list: kind, version 4.0, entry, category and name.
  static PiplBuilder filter(const char (&entryKey)[5], const std::string& entryName = "PluginMain") {
    PiplBuilder builder;
    builder.kind("8BFM").version(4, 0).entry(entryKey, entryName).pascal("catg", "Tests").pascal("name", "Invert");
    return builder;
  }

  // The resource: leading word 1, list version, property count.
  std::vector<unsigned char> bytes(std::uint32_t listVersion = 0, std::int64_t claimedCount = -1) const {
    std::vector<unsigned char> out{1, 0};
    put_u32(out, listVersion);
    put_u32(out, static_cast<std::uint32_t>(claimedCount < 0 ? count_ : claimedCount));
    out.insert(out.end(), properties_.begin(), properties_.end());
    return out;
  }

  static std::string code_bytes(const char (&code)[5]) { return {code[3], code[2], code[1], code[0]}; }

 private:
  static void put_u32(std::vector<unsigned char>& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<unsigned char>(value >> shift));
  }
  static void put_code(std::vector<unsigned char>& out, const char (&code)[5]) {
    const std::string bytes = code_bytes(code);
    out.insert(out.end(), bytes.begin(), bytes.end());
  }

  std::vector<unsigned char> properties_;
  std::int64_t count_ = 0;
};

}  // namespace qnutil_test
