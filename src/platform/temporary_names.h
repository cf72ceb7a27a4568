// The names of the temporary files a FileReplacement writes beside its
// target, "<name>.qnutil-<process>-<sequence>.tmp", so that a later
// replacement can tell the leftovers of a killed writer.
#pragma once

#include <cstdint>
#include <string>

namespace qnutil::platform {

inline constexpr char kTemporaryMarker[] = ".qnutil-";
inline constexpr char kTemporarySuffix[] = ".tmp";

inline std::string temporary_name(const std::string& target, std::uint32_t process,
                                  unsigned sequence) {
  return target + kTemporaryMarker + std::to_string(process) + '-' + std::to_string(sequence) +
         kTemporarySuffix;
}

// The process that wrote temporary file `entry` of the file named `name`;
// 0 when `entry` is no such file. `same` compares two characters of names
// as the platform's file system does.
template <class SameCharacter>
std::uint32_t temporary_writer(const std::string& entry, const std::string& name,
                               SameCharacter same) {
  const std::string prefix = name + kTemporaryMarker;
  const std::string suffix = kTemporarySuffix;
  if (entry.size() <= prefix.size() + suffix.size()) return 0;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (!same(entry[i], prefix[i])) return 0;
  }
  for (std::size_t i = 0; i < suffix.size(); ++i) {
    if (!same(entry[entry.size() - suffix.size() + i], suffix[i])) return 0;
  }
  const std::string numbers =
      entry.substr(prefix.size(), entry.size() - prefix.size() - suffix.size());
  const std::size_t dash = numbers.find('-');
  if (dash == 0 || dash == std::string::npos ||
      numbers.find_first_not_of("0123456789-") != std::string::npos) {
    return 0;
  }
  return static_cast<std::uint32_t>(std::stoul(numbers.substr(0, dash)));
}

}  // namespace qnutil::platform
