#include "rich_text/StyledText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "rich_text/Encoding.h"

namespace rich_text {
namespace {

/// A word whose every byte is `byte`.
constexpr std::uint64_t Everywhere(unsigned char byte) {
  return 0x0101010101010101U * byte;
}

/// Non-zero when a byte of `word` is zero.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
  return (word - Everywhere(1)) & ~word & Everywhere(0x80);
}

}  // namespace

std::size_t LineEndLength(std::string_view text, std::size_t offset) {
  if (offset >= text.size()) return 0;
  if (text[offset] == '\n') return 1;
  if (text[offset] != '\r') return 0;
  return offset + 1 < text.size() && text[offset + 1] == '\n' ? 2 : 1;
}

std::size_t FindLineEnd(std::string_view text, std::size_t from) {
  std::size_t i = std::min(from, text.size());
  for (; i + 8 <= text.size(); i += 8) {
    std::uint64_t block;
    std::memcpy(&block, text.data() + i, sizeof block);
    if (ZeroBytes(block ^ Everywhere('\n')) | ZeroBytes(block ^ Everywhere('\r'))) break;
  }
  while (i < text.size() && text[i] != '\n' && text[i] != '\r') ++i;
  return i;
}

bool SplitsCharacter(std::string_view text, std::size_t offset) {
  if (offset == 0 || offset >= text.size()) return false;
  return ContinuesCharacter(text[offset]) || (text[offset] == '\n' && text[offset - 1] == '\r');
}

bool EqualButForLineEnds(std::string_view a, std::string_view b) {
  if (a == b) return true;
  std::size_t i = 0, j = 0;
  while (true) {
    const std::size_t endA = FindLineEnd(a, i);
    const std::size_t length = endA - i;
    if (b.substr(j, length) != a.substr(i, length)) return false;
    i = endA, j += length;
    const std::size_t lineEndA = LineEndLength(a, i), lineEndB = LineEndLength(b, j);
    if ((lineEndA == 0) != (lineEndB == 0)) return false;
    if (lineEndA == 0) return j == b.size();
    i += lineEndA, j += lineEndB;
  }
}

}  // namespace rich_text
