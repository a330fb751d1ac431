#include "editor/rtfscan/Scanners.h"

#include <algorithm>
#include <cstring>

#include "rich_text/Rtf.h"

namespace editor::rtfscan {
namespace {

enum class Kind { Character, LineEnd, Switch, Plain, OtherCode };

/// One piece of a body: [start, End) in bytes.
struct Token {
  Kind What = Kind::Character;
  std::size_t End = 0;
};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsNumberPart(char c) {
  return c == '-' || (c >= '0' && c <= '9');
}

/// The end of a control word that starts at `at`, its number and its closing space included.
std::size_t WordEnd(std::string_view rtf, std::size_t at, std::string_view& word) {
  std::size_t i = at + 1;
  while (i < rtf.size() && IsLetter(rtf[i])) ++i;
  word = rtf.substr(at + 1, i - at - 1);
  while (i < rtf.size() && IsNumberPart(rtf[i])) ++i;
  if (i < rtf.size() && rtf[i] == ' ') ++i;
  return i;
}

/// The number of a "\u" word at `at` as a UTF-16 unit.
unsigned UnitAt(std::string_view rtf, std::size_t at) {
  std::size_t i = at + 2;
  const bool isNegative = i < rtf.size() && rtf[i] == '-';
  unsigned unit = 0;
  for (i += isNegative; i < rtf.size() && rtf[i] >= '0' && rtf[i] <= '9'; ++i)
    unit = unit * 10 + static_cast<unsigned>(rtf[i] - '0');
  return (isNegative ? 0 - unit : unit) & 0xFFFF;
}

/// The end of the character that a "\u" word at `at`, ending at `end`, begins: with the one fallback character, and
/// with the second half of a surrogate pair.
std::size_t UnicodeEnd(std::string_view rtf, std::size_t at, std::size_t end) {
  std::size_t stop = std::min(end + 1, rtf.size());
  if ((UnitAt(rtf, at) & 0xFC00) != 0xD800 || !rtf.substr(stop).starts_with("\\u")) return stop;
  std::string_view word;
  const std::size_t lowEnd = WordEnd(rtf, stop, word);
  return word == "u" && (UnitAt(rtf, stop) & 0xFC00) == 0xDC00 ? std::min(lowEnd + 1, rtf.size()) : stop;
}

Token WordToken(std::string_view rtf, std::size_t at) {
  std::string_view word;
  const std::size_t end = WordEnd(rtf, at, word);
  if (word == "par") return {Kind::LineEnd, end};
  if (word == "cf") return {Kind::Switch, end};
  if (word == "plain") {
    const std::size_t space = rtf.find(' ', at);
    return {Kind::Plain, space == std::string_view::npos ? rtf.size() : space + 1};
  }
  if (word == "tab") return {Kind::Character, end};
  if (word == "u") return {Kind::Character, UnicodeEnd(rtf, at, end)};
  return {Kind::OtherCode, end};
}

Token TokenAt(std::string_view rtf, std::size_t at) {
  const char c = rtf[at];
  if (c == '\r' || c == '\n' || c == '{' || c == '}') return {Kind::OtherCode, at + 1};
  if (c != '\\') return {Kind::Character, at + 1};
  if (at + 1 >= rtf.size()) return {Kind::OtherCode, rtf.size()};
  if (IsLetter(rtf[at + 1])) return WordToken(rtf, at);
  if (rtf[at + 1] == '\'') return {Kind::Character, std::min(at + 4, rtf.size())};
  return {Kind::Character, at + 2};
}

}  // namespace

std::size_t ClearLn(std::span<char> piece) {
  const std::string_view rtf(piece.data(), piece.size());
  std::size_t kept = 0;
  for (std::size_t at = 0; at < rtf.size();) {
    const Token token = TokenAt(rtf, at);
    if (token.What != Kind::Switch && token.What != Kind::Plain) {
      std::memmove(piece.data() + kept, piece.data() + at, token.End - at);
      kept += token.End - at;
    }
    at = token.End;
  }
  return kept;
}

std::size_t GoToLine(std::string_view body, std::size_t n) {
  std::size_t at = 0;
  while (n > 0 && at < body.size()) {
    const Token token = TokenAt(body, at);
    if (token.What == Kind::LineEnd) --n;
    at = token.End;
  }
  return at + 1;
}

std::size_t WhiteSpace(std::string_view rtf, std::size_t line) {
  const std::string_view body = rtf.substr(rich_text::RtfBodyStart(rtf));
  std::size_t at = line < 1 ? body.size() : GoToLine(body, line - 1) - 1;
  std::size_t spaces = 0;
  while (at < body.size()) {
    const Token token = TokenAt(body, at);
    if (token.What == Kind::Character && body[at] != ' ') break;
    if (token.What == Kind::LineEnd) break;
    if (token.What == Kind::Character) ++spaces;
    at = token.End;
  }
  return spaces;
}

std::size_t NumberOfLinesIn(std::string_view rtf) {
  std::size_t lines = 1;
  for (std::size_t at = rich_text::RtfBodyStart(rtf); at < rtf.size();) {
    const Token token = TokenAt(rtf, at);
    if (token.What == Kind::LineEnd) ++lines;
    at = token.End;
  }
  return lines;
}

std::size_t RTFPosition(std::string_view rtf, std::size_t offset, std::size_t& cachePos, std::size_t& cacheOffset) {
  if (cachePos == 0) cachePos = rich_text::RtfBodyStart(rtf) + 1, cacheOffset = 0;
  std::size_t at = cachePos - 1, plain = cacheOffset, characterAt = at;
  while (at < rtf.size()) {
    const Token token = TokenAt(rtf, at);
    if (token.What == Kind::Character || token.What == Kind::LineEnd) {
      characterAt = at;
      const std::size_t length = token.What == Kind::LineEnd ? 2 : 1;
      if (plain + length > offset) return characterAt + 1;
      plain += length;
      characterAt = token.End;
    }
    at = token.End;
    if (token.What == Kind::LineEnd) cachePos = at + 1, cacheOffset = plain;
  }
  return characterAt + 1;
}

}  // namespace editor::rtfscan
