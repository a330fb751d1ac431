#include "editor/Crc32c.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

namespace editor {
namespace {

// Entry [k][b] is what byte b does to the sum when k bytes follow it, so that eight bytes take one step.
using CrcTables = std::array<std::array<std::uint32_t, 256>, 8>;

constexpr CrcTables MakeTables() {
  CrcTables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0x82F63B78U : 0);
    tables[0][byte] = sum;
  }
  for (std::size_t following = 1; following < 8; ++following)
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t sum = tables[following - 1][byte];
      tables[following][byte] = (sum >> 8) ^ tables[0][sum & 0xFF];
    }
  return tables;
}

constexpr CrcTables Tables = MakeTables();

/// The next eight bytes as a number, the first one lowest.
std::uint64_t EightBytes(const char* bytes) {
  std::uint64_t value = 0;
  std::memcpy(&value, bytes, sizeof value);
  if constexpr (std::endian::native == std::endian::big) value = __builtin_bswap64(value);
  return value;
}

}  // namespace

std::uint32_t Crc32c(std::string_view bytes, std::uint32_t before) {
  std::uint32_t sum = ~before;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    const std::uint64_t eight = EightBytes(bytes.data()) ^ sum;
    sum = 0;
    for (std::size_t byte = 0; byte < 8; ++byte) sum ^= Tables[7 - byte][(eight >> (8 * byte)) & 0xFF];
  }
  for (const char byte : bytes) sum = (sum >> 8) ^ Tables[0][(sum ^ static_cast<unsigned char>(byte)) & 0xFF];
  return ~sum;
}

}  // namespace editor
