#pragma once
// The words of a Lua file, one after the other.

#include <cstddef>
#include <string>
#include <string_view>

namespace import {

struct LuaToken {
  enum class Sort { Name, Number, Text, Mark, End, Bad };

  Sort Kind = Sort::End;
  std::string Text;  ///< a text without its quotes, its escapes replaced; for Bad the reason
  std::size_t Line = 0;
  bool FirstInLine = false;

  bool Is(std::string_view mark) const { return Kind == Sort::Mark && Text == mark; }
  bool IsName(std::string_view name) const { return Kind == Sort::Name && Text == name; }
};

class LuaTokens {
 public:
  explicit LuaTokens(std::string_view text) : m_text(text) {}

  /// The next token; End at the end, and Bad (for ever) for what never closes.
  LuaToken Next();

 private:
  bool SkipBlanks(LuaToken& token);
  bool SkipComment();
  bool TakeLong(std::string& text);
  bool TakeQuoted(std::string& text);
  void TakeEscape(std::string& text);
  LuaToken Bad(LuaToken token, std::string why);

  std::string_view m_text;
  std::size_t m_at = 0, m_line = 1, m_lineOfLastToken = 0;
};

}  // namespace import
