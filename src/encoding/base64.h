// Standard base64 (RFC 4648 alphabet, "=" padding, no line breaks).
#pragma once

#include <cstddef>

namespace qnutil::encoding {

// Characters of the base64 text of `bytes` input bytes: 4 * ceil(bytes / 3).
constexpr std::size_t base64_length(std::size_t bytes) { return (bytes + 2) / 3 * 4; }

// Writes the base64 text of in[0, size) to out, which holds at least
// base64_length(size) characters; no terminator.
void encode_base64(const unsigned char* in, std::size_t size, char* out) noexcept;

}  // namespace qnutil::encoding
