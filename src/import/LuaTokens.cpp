#include "import/LuaTokens.h"

#include <algorithm>
#include <cctype>

namespace import {
namespace {

bool IsNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

std::size_t LinesIn(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

/// Takes "[[…]]" or "[=[…]=]"; false, with nothing taken, when none begins here, or with `text` untouched when it never
/// ends.
bool LuaTokens::TakeLong(std::string& text) {
  std::size_t level = 1;
  while (m_at + level < m_text.size() && m_text[m_at + level] == '=') ++level;
  if (m_at + level >= m_text.size() || m_text[m_at] != '[' || m_text[m_at + level] != '[') return false;
  const std::string close = ']' + std::string(level - 1, '=') + ']';
  const std::size_t start = m_at + level + 1;
  const std::size_t end = m_text.find(close, start);
  if (end == std::string_view::npos) {
    m_at = m_text.size() + 1;
    return false;
  }
  text = m_text.substr(start, end - start);
  m_line += LinesIn(text);
  if (text.starts_with('\n')) text.erase(0, 1);
  m_at = end + close.size();
  return true;
}

/// Takes the comment at m_at; false when it never ends.
bool LuaTokens::SkipComment() {
  m_at += 2;
  if (m_at < m_text.size() && m_text[m_at] == '[') {
    std::string text;
    if (TakeLong(text)) return true;
    if (m_at > m_text.size()) return false;
  }
  m_at = std::min(m_text.find('\n', m_at), m_text.size());
  return true;
}

bool LuaTokens::SkipBlanks(LuaToken& token) {
  while (m_at < m_text.size()) {
    const char c = m_text[m_at];
    if (c == '\n') ++m_line;
    if (std::isspace(static_cast<unsigned char>(c)) != 0) {
      ++m_at;
    } else if (m_text.substr(m_at, 2) == "--") {
      token.Line = m_line;
      if (!SkipComment()) return false;
    } else {
      break;
    }
  }
  return true;
}

void LuaTokens::TakeEscape(std::string& text) {
  if (m_at >= m_text.size()) return;
  const char c = m_text[m_at++];
  constexpr std::string_view Letters = "abfnrtv", Values = "\a\b\f\n\r\t\v";
  if (const std::size_t place = Letters.find(c); place != std::string_view::npos) {
    text += Values[place];
  } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
    int value = c - '0';
    for (int i = 0; i < 2 && m_at < m_text.size() && std::isdigit(static_cast<unsigned char>(m_text[m_at])) != 0; ++i)
      value = value * 10 + (m_text[m_at++] - '0');
    if (value < 0x80) text += static_cast<char>(value);
  } else {
    if (c == '\n') ++m_line;
    text += c;
  }
}

/// Takes a text in quotes; false when its line ends first.
bool LuaTokens::TakeQuoted(std::string& text) {
  const char quote = m_text[m_at++];
  while (m_at < m_text.size() && m_text[m_at] != '\n') {
    const char c = m_text[m_at++];
    if (c == quote) return true;
    if (c == '\\')
      TakeEscape(text);
    else
      text += c;
  }
  return false;
}

LuaToken LuaTokens::Bad(LuaToken token, std::string why) {
  token.Kind = LuaToken::Sort::Bad;
  token.Text = std::move(why);
  m_at = m_text.size();
  return token;
}

LuaToken LuaTokens::Next() {
  LuaToken token;
  if (!SkipBlanks(token)) return Bad(std::move(token), "The comment that begins here never ends.");
  token.Line = m_line;
  token.FirstInLine = m_line != m_lineOfLastToken;
  if (m_at >= m_text.size()) return token;
  const char c = m_text[m_at];
  if (c == '"' || c == '\'') {
    token.Kind = LuaToken::Sort::Text;
    if (!TakeQuoted(token.Text)) return Bad(std::move(token), "The text that begins here never ends.");
  } else if (c == '[' && TakeLong(token.Text)) {
    token.Kind = LuaToken::Sort::Text;
  } else if (m_at > m_text.size()) {
    return Bad(std::move(token), "The text that begins here never ends.");
  } else if (IsNameCharacter(c)) {
    const bool number = std::isdigit(static_cast<unsigned char>(c)) != 0;
    token.Kind = number ? LuaToken::Sort::Number : LuaToken::Sort::Name;
    const std::size_t start = m_at;
    while (m_at < m_text.size() && (IsNameCharacter(m_text[m_at]) || (number && m_text[m_at] == '.'))) ++m_at;
    token.Text = m_text.substr(start, m_at - start);
  } else {
    token.Kind = LuaToken::Sort::Mark;
    std::size_t length = 1;
    for (std::string_view two : {"..", "==", "~=", "<=", ">="})
      if (m_text.substr(m_at, 2) == two) length = 2;
    token.Text = m_text.substr(m_at, length);
    m_at += length;
  }
  m_lineOfLastToken = m_line;
  return token;
}

}  // namespace import
