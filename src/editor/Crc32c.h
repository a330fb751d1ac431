#pragma once
// The checksum of the records of a journal: CRC-32C (Castagnoli).

#include <cstdint>
#include <string_view>

namespace editor {

/// The sum of the bytes, going on from `before`, the sum of the bytes that stand in front of them. Any damage within
/// four neighbouring bytes changes it.
std::uint32_t Crc32c(std::string_view bytes, std::uint32_t before = 0);

}  // namespace editor
