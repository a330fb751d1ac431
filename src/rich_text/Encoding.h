#pragma once
// Between the bytes of a file and the program's own UTF-8 text. Bytes that are valid UTF-8 are UTF-8; any others are
// Windows-1252. Both directions together change nothing: EncodeText(DecodeText(bytes)) is bytes, for any bytes.
// The five bytes that Windows-1252 leaves undefined stand for the control characters of the same number.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rich_text {

enum class TextEncoding { Utf8, Windows1252 };

/// A text file's content, decoded.
struct DecodedText {
  std::string Text;  ///< valid UTF-8, without the mark
  TextEncoding Encoding = TextEncoding::Utf8;
  bool HasMark = false;  ///< the file begins with the UTF-8 mark EF BB BF, which EncodeText writes back
};

/// Whether the bytes are well-formed UTF-8 (no surrogates, nothing overlong, nothing above U+10FFFF).
bool IsValidUtf8(std::string_view bytes);

/// Decodes a whole file.
DecodedText DecodeText(std::string_view bytes);
DecodedText DecodeText(std::string&& bytes);

/// The bytes to write for `text`; nothing when the encoding cannot hold one of its characters.
std::optional<std::string> EncodeText(const DecodedText& text);

/// The code point at `offset` of valid UTF-8, with its length in bytes.
struct CodePoint {
  char32_t Value = 0;
  std::size_t Bytes = 0;
};
CodePoint CodePointAt(std::string_view text, std::size_t offset);

/// The bytes that a character takes at most.
inline constexpr std::size_t LongestCharacter = 4;

/// The length in bytes of the UTF-8 character whose first byte is `lead`.
constexpr std::size_t CharacterBytes(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// Whether the byte goes on with a character that has begun before it.
constexpr bool ContinuesCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The first and the last character of a text, "" for none.
std::string_view FirstCharacter(std::string_view text);
std::string_view LastCharacter(std::string_view text);

/// A piece of a text without the rest of a character that it may begin with.
std::string_view FromWholeCharacter(std::string_view piece);

/// Appends one code point as UTF-8.
void AppendUtf8(std::string& text, char32_t value);

/// The number of characters (code points) of valid UTF-8.
std::size_t CharacterCount(std::string_view text);

/// The Windows-1252 byte of a character, or nothing when the code page has none.
std::optional<unsigned char> ToWindows1252(char32_t value);

/// The character of a Windows-1252 byte.
char32_t FromWindows1252(unsigned char byte);

/// Lower case of one character, one for one: the simple mapping of the Unicode character database, no special cases.
char32_t LowerCase(char32_t value);

/// Lower case of every character of valid UTF-8; the number of characters stays, the number of bytes may not.
std::string LowerCase(std::string_view text);

}  // namespace rich_text
