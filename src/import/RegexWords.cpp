#include "import/RegexWords.h"

#include <algorithm>
#include <cctype>

#include "import/Definition.h"
#include "templates/Values.h"

namespace import {
namespace {

constexpr std::size_t MostAlternatives = 256, LongestWord = 200, LargestSet = 64;

using Words = std::vector<std::string>;

/// Walks an expression once. Each part gives the words that it stands for: {""} for what only asserts, none for what
/// stands for too many.
class Expansion {
 public:
  explicit Expansion(std::string_view expression) : m_text(expression) {}

  RegexWords Run() {
    Words words = Alternatives(0);
    if (m_at < m_text.size()) words.clear(), m_result.Complete = false;  // a bracket too many
    for (std::string& word : words)
      if (!word.empty() && std::find(m_result.Words.begin(), m_result.Words.end(), word) == m_result.Words.end())
        m_result.Words.push_back(std::move(word));
    return std::move(m_result);
  }

 private:
  bool AtEnd() const { return m_at >= m_text.size(); }
  char Here() const { return m_text[m_at]; }
  bool Take(std::string_view what) {
    if (!m_text.substr(m_at).starts_with(what)) return false;
    m_at += what.size();
    return true;
  }

  Words Alternatives(std::size_t depth);
  Words Sequence(std::size_t depth);
  Words Atom(std::size_t depth);
  Words Group(std::size_t depth);
  Words Escape();
  Words Set();
  Words Repeated(Words words, bool anyCharacter);
  bool SetMember(std::string& members, char& member);

  static Words Product(const Words& left, const Words& right);
  /// Too many words to name.
  Words Countless() {
    m_result.Complete = false;
    return {};
  }

  std::string_view m_text;
  std::size_t m_at = 0;
  RegexWords m_result;
};

Words Expansion::Alternatives(std::size_t depth) {
  Words all = Sequence(depth);
  while (Take("|")) {
    Words more = Sequence(depth);
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
    if (all.size() > MostAlternatives) all = Countless();
  }
  return all;
}

Words Expansion::Sequence(std::size_t depth) {
  Words words = {""};
  while (!AtEnd() && Here() != '|' && Here() != ')') {
    const bool anyCharacter = Here() == '.';
    Words part = Repeated(Atom(depth), anyCharacter);
    words = Product(words, part);
    if (words.empty()) m_result.Complete = false;
  }
  return words;
}

Words Expansion::Product(const Words& left, const Words& right) {
  Words product;
  if (left.size() * right.size() > MostAlternatives) return product;
  for (const std::string& head : left)
    for (const std::string& tail : right)
      if (head.size() + tail.size() <= LongestWord) product.push_back(head + tail);
  return product;
}

/// One part without its repetition.
Words Expansion::Atom(std::size_t depth) {
  switch (Here()) {
    case '(':
      return Group(depth);
    case '[':
      return Set();
    case '\\':
      return Escape();
    case '^':
      ++m_at;
      m_result.AtLineStart = true;
      return {""};
    case '$':
      ++m_at;
      return {""};
    case '.':
      ++m_at;
      return {};  // Repeated knows ".*" at the end
    default:
      return {std::string(1, m_text[m_at++])};
  }
}

Words Expansion::Group(std::size_t depth) {
  ++m_at;
  bool assertion = false;
  if (Take("?")) {
    assertion = Take("=") || Take("!") || Take("<=") || Take("<!") || Take("#");
    if (!assertion && !Take(":")) {  // a named group or flags
      while (!AtEnd() && Here() != ':' && Here() != '>' && Here() != ')') ++m_at;
      if (!AtEnd() && Here() != ')') ++m_at;
    }
  }
  if (depth >= MostNesting) {
    m_at = m_text.size();
    return Countless();
  }
  const RegexWords before = m_result;
  Words words = Alternatives(depth + 1);
  if (!Take(")")) {
    m_at = m_text.size();
    return Countless();
  }
  if (!assertion) return words;
  m_result = before;
  m_result.Asserted = true;
  return {""};
}

Words Expansion::Escape() {
  ++m_at;
  if (AtEnd()) return Countless();
  const char c = m_text[m_at++];
  switch (c) {
    case 'b':
    case 'B':
    case 'Z':
    case 'z':
      return {""};
    case 'A':
      m_result.AtLineStart = true;
      return {""};
    case 's':
    case 'S':
    case 'd':
    case 'D':
    case 'w':
    case 'W':
      return {};
    default:
      break;
  }
  if (std::isalnum(static_cast<unsigned char>(c)) != 0 && c != '_') return Countless();  // \n, \x41, a back reference
  return {std::string(1, c)};
}

/// Takes one member of a set; false for a class of many.
bool Expansion::SetMember(std::string& members, char& member) {
  if (Take("[:")) {
    const std::size_t end = m_text.find(":]", m_at);
    m_at = end == std::string_view::npos ? m_text.size() : end + 2;
    return false;
  }
  member = m_text[m_at++];
  if (member != '\\' || AtEnd()) {
    members += member;
    return true;
  }
  member = m_text[m_at++];
  if (std::isalnum(static_cast<unsigned char>(member)) != 0) return false;
  members += member;
  return true;
}

Words Expansion::Set() {
  ++m_at;
  const bool negated = Take("^");
  bool countable = !negated;
  std::string members;
  for (bool first = true; !AtEnd() && (first || Here() != ']'); first = false) {
    char from = 0;
    if (!SetMember(members, from)) {
      countable = false;
      continue;
    }
    if (m_at + 1 >= m_text.size() || Here() != '-' || m_text[m_at + 1] == ']') continue;
    ++m_at;
    std::string ignored;
    char to = 0;
    if (!SetMember(ignored, to)) countable = false;
    for (int c = from + 1; c <= to && members.size() <= LargestSet; ++c) members += static_cast<char>(c);
  }
  if (!Take("]") || !countable || members.size() > LargestSet) return {};
  Words words;
  for (char c : members) words.emplace_back(1, c);
  return words;
}

/// Takes the repetition that follows a part.
Words Expansion::Repeated(Words words, bool anyCharacter) {
  const bool optional = Take("?");
  const bool many = !optional && (Take("*") || Take("+"));
  if (many) {
    const bool maybeNone = m_text[m_at - 1] == '*';
    Take("?") || Take("+");
    if (anyCharacter && (AtEnd() || Here() == '$' || Here() == ')')) {
      m_result.ToLineEnd = true;
      return {""};
    }
    m_result.Complete = false;
    if (maybeNone) return {""};
    return words;
  }
  if (optional) {
    Take("?") || Take("+");
    words.emplace_back("");
    return words;
  }
  if (!AtEnd() && Here() == '{' && m_at + 1 < m_text.size() &&
      std::isdigit(static_cast<unsigned char>(m_text[m_at + 1])) != 0) {
    const std::size_t end = m_text.find('}', m_at);
    if (end == std::string_view::npos) return words;
    const std::string_view count = m_text.substr(m_at + 1, end - m_at - 1);
    m_at = end + 1;
    const auto times = templates::ParseInteger<std::int16_t>(count);
    if (!times || *times > 8) return Countless();
    Words repeated = {""};
    for (int i = 0; i < *times; ++i) repeated = Product(repeated, words);
    return repeated;
  }
  return words;
}

}  // namespace

RegexWords WordsOfRegex(std::string_view expression) {
  return Expansion(templates::Trimmed(expression)).Run();
}

std::string CharactersOfSets(std::string_view expression) {
  std::string characters;
  bool inSet = false;
  for (std::size_t i = 0; i < expression.size(); ++i) {
    const char c = expression[i];
    if (c == '\\' && i + 1 < expression.size()) {
      const char escaped = expression[++i];
      if (escaped == 'w') characters += '_';
      if (inSet && std::isalnum(static_cast<unsigned char>(escaped)) == 0) characters += escaped;
    } else if (!inSet) {
      inSet = c == '[';
      if (inSet && i + 1 < expression.size() && expression[i + 1] == '^') inSet = false;
    } else if (c == ']') {
      inSet = false;
    } else if (std::ispunct(static_cast<unsigned char>(c)) != 0) {
      const bool range = c == '-' && i > 0 && i + 1 < expression.size() &&
                         std::isalnum(static_cast<unsigned char>(expression[i - 1])) != 0 &&
                         std::isalnum(static_cast<unsigned char>(expression[i + 1])) != 0;
      if (!range) characters += c;
    }
  }
  return characters;
}

}  // namespace import
