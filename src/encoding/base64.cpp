#include "encoding/base64.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace qnutil::encoding {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Both characters for every 12-bit half of a three-byte group, so that a
// group costs two look-ups instead of four.
struct PairTable {
  std::array<std::array<char, 2>, 4096> pairs{};
  constexpr PairTable() {
    for (std::size_t i = 0; i < pairs.size(); ++i)
      pairs[i] = {kAlphabet[i >> 6], kAlphabet[i & 63]};
  }
};
constexpr PairTable kTable;

inline void encode_group(std::uint32_t bits, char* out) noexcept {
  std::memcpy(out, kTable.pairs[bits >> 12].data(), 2);
  std::memcpy(out + 2, kTable.pairs[bits & 0xFFF].data(), 2);
}

inline std::uint32_t group_bits(const unsigned char* in) noexcept {
  return std::uint32_t{in[0]} << 16 | std::uint32_t{in[1]} << 8 | in[2];
}

// Four groups (12 bytes) from two overlapping 64-bit big-endian loads.
inline std::uint64_t load_big_endian(const unsigned char* in) noexcept {
  std::uint64_t value;
  std::memcpy(&value, in, sizeof value);
  if constexpr (std::endian::native == std::endian::little) value = __builtin_bswap64(value);
  return value;
}

}  // namespace

void encode_base64(const unsigned char* in, std::size_t size, char* out) noexcept {
  std::size_t i = 0;
  // The second load reads bytes 4..11 of the block, so 12 bytes suffice.
  for (; i + 12 <= size; i += 12, out += 16) {
    const std::uint64_t first = load_big_endian(in + i);
    const std::uint64_t second = load_big_endian(in + i + 4);
    encode_group(static_cast<std::uint32_t>(first >> 40), out);
    encode_group(static_cast<std::uint32_t>(first >> 16) & 0xFFFFFF, out + 4);
    encode_group(static_cast<std::uint32_t>(second >> 24) & 0xFFFFFF, out + 8);
    encode_group(static_cast<std::uint32_t>(second) & 0xFFFFFF, out + 12);
  }
  for (; i + 3 <= size; i += 3, out += 4) encode_group(group_bits(in + i), out);
  if (const std::size_t rest = size - i; rest > 0) {
    const unsigned char tail[3] = {in[i], rest == 2 ? in[i + 1] : static_cast<unsigned char>(0), 0};
    encode_group(group_bits(tail), out);
    out[3] = '=';
    if (rest == 1) out[2] = '=';
  }
}

}  // namespace qnutil::encoding
