#include "rich_text/Encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include "rich_text/LowerCaseTable.h"

namespace rich_text {
namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// The characters of the bytes 0x80 to 0x9F; the undefined ones stand for themselves.
constexpr std::array<char16_t, 32> Windows1252High = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

template <std::size_t Bytes>
bool IsAsciiBlock(const char* bytes) {
  std::array<std::uint64_t, Bytes / 8> words;
  std::memcpy(words.data(), bytes, sizeof words);
  std::uint64_t all = 0;
  for (const std::uint64_t word : words) all |= word;
  return (all & 0x8080808080808080U) == 0;
}

/// The end of the ASCII stretch at `offset`, found in blocks; may stop up to seven bytes early.
std::size_t SkipAscii(std::string_view text, std::size_t offset) {
  constexpr std::size_t Long = 64;
  while (offset + Long <= text.size() && IsAsciiBlock<Long>(text.data() + offset)) offset += Long;
  while (offset + 8 <= text.size() && IsAsciiBlock<8>(text.data() + offset)) offset += 8;
  return offset;
}

/// The length of the well-formed character at `offset`, 0 when it is malformed.
std::size_t WellFormedLength(std::string_view bytes, std::size_t offset) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[offset + i]); };
  const unsigned char lead = at(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = CharacterBytes(bytes[offset]);
  if (offset + length > bytes.size()) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if (!ContinuesCharacter(bytes[offset + i])) return 0;
  if (lead == 0xE0 && at(1) < 0xA0) return 0;  // overlong
  if (lead == 0xED && at(1) > 0x9F) return 0;  // a surrogate
  if (lead == 0xF0 && at(1) < 0x90) return 0;  // overlong
  if (lead == 0xF4 && at(1) > 0x8F) return 0;  // above U+10FFFF
  return length;
}

std::string TextFromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t plain = SkipAscii(bytes, i);
    text.append(bytes, i, plain - i);
    if ((i = plain) == bytes.size()) break;
    AppendUtf8(text, FromWindows1252(static_cast<unsigned char>(bytes[i++])));
  }
  return text;
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    i = SkipAscii(bytes, i);
    if (i == bytes.size()) return true;
    const std::size_t length = WellFormedLength(bytes, i);
    if (length == 0) return false;
    i += length;
  }
  return true;
}

DecodedText DecodeText(std::string_view bytes) {
  return DecodeText(std::string(bytes));
}

DecodedText DecodeText(std::string&& bytes) {
  if (!IsValidUtf8(bytes)) return {TextFromWindows1252(bytes), TextEncoding::Windows1252, false};
  DecodedText decoded{std::move(bytes), TextEncoding::Utf8, false};
  if (decoded.Text.starts_with(Utf8Mark)) {
    decoded.HasMark = true;
    decoded.Text.erase(0, Utf8Mark.size());
  }
  return decoded;
}

std::optional<std::string> EncodeText(const DecodedText& text) {
  if (text.Encoding == TextEncoding::Utf8) return text.HasMark ? std::string(Utf8Mark) + text.Text : text.Text;
  std::string bytes;
  bytes.reserve(text.Text.size());
  for (std::size_t i = 0; i < text.Text.size();) {
    const std::size_t plain = SkipAscii(text.Text, i);
    bytes.append(text.Text, i, plain - i);
    if ((i = plain) == text.Text.size()) break;
    const CodePoint point = CodePointAt(text.Text, i);
    const auto byte = ToWindows1252(point.Value);
    if (!byte) return std::nullopt;
    bytes.push_back(static_cast<char>(*byte));
    i += point.Bytes;
  }
  return bytes;
}

std::string_view FirstCharacter(std::string_view text) {
  return text.empty() ? text : text.substr(0, CharacterBytes(text[0]));
}

std::string_view LastCharacter(std::string_view text) {
  std::size_t start = text.size();
  while (start > 0 && ContinuesCharacter(text[--start])) {
  }
  return text.substr(start);
}

std::string_view FromWholeCharacter(std::string_view piece) {
  return {std::find_if_not(piece.begin(), piece.end(), ContinuesCharacter), piece.end()};
}

CodePoint CodePointAt(std::string_view text, std::size_t offset) {
  const auto at = [&](std::size_t i) -> char32_t {
    return offset + i < text.size() ? static_cast<unsigned char>(text[offset + i]) & 0x3FU : 0U;
  };
  const auto lead = static_cast<unsigned char>(text[offset]);
  switch (CharacterBytes(text[offset])) {
    case 1:
      return {lead, 1};
    case 2:
      return {(lead & 0x1FU) << 6 | at(1), 2};
    case 3:
      return {(lead & 0x0FU) << 12 | at(1) << 6 | at(2), 3};
    default:
      return {(lead & 0x07U) << 18 | at(1) << 12 | at(2) << 6 | at(3), 4};
  }
}

void AppendUtf8(std::string& text, char32_t value) {
  const auto tail = [&](int shift) { text.push_back(static_cast<char>(0x80 | (value >> shift & 0x3F))); };
  if (value < 0x80) {
    text.push_back(static_cast<char>(value));
  } else if (value < 0x800) {
    text.push_back(static_cast<char>(0xC0 | value >> 6));
    tail(0);
  } else if (value < 0x10000) {
    text.push_back(static_cast<char>(0xE0 | value >> 12));
    tail(6), tail(0);
  } else {
    text.push_back(static_cast<char>(0xF0 | value >> 18));
    tail(12), tail(6), tail(0);
  }
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !ContinuesCharacter(c); }));
}

std::optional<unsigned char> ToWindows1252(char32_t value) {
  if (value < 0x80 || (value >= 0xA0 && value <= 0xFF)) return static_cast<unsigned char>(value);
  const auto* found = std::find(Windows1252High.begin(), Windows1252High.end(), value);
  if (found == Windows1252High.end()) return std::nullopt;
  return static_cast<unsigned char>(0x80 + (found - Windows1252High.begin()));
}

char32_t FromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? Windows1252High[byte - 0x80U] : byte;
}

char32_t LowerCase(char32_t value) {
  if (value < 0x80) return value >= 'A' && value <= 'Z' ? value + ('a' - 'A') : value;
  const auto* range = std::lower_bound(LowerCaseRanges.begin(), LowerCaseRanges.end(), value,
                                       [](const LowerCaseRange& r, char32_t v) { return r.Last < v; });
  if (range == LowerCaseRanges.end() || value < range->First || (value - range->First) % range->Stride != 0)
    return value;
  return static_cast<char32_t>(static_cast<std::int64_t>(value) + range->Delta);
}

std::string LowerCase(std::string_view text) {
  std::string lower;
  lower.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    AppendUtf8(lower, LowerCase(point.Value));
    i += point.Bytes;
  }
  return lower;
}

}  // namespace rich_text
