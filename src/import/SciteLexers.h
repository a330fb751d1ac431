#pragma once
// What SciTE's lexers know by themselves: its property files give the words, but what begins a comment or a string is
// built into the lexer that they name.

#include <cstdint>
#include <string_view>

namespace import {

/// How the words of a lexer stand in a script.
enum class WordForm : std::uint8_t {
  Plain,
  Tag,      ///< an element's name: "<word" and "</word"
  Command,  ///< "\word"
};

struct SciteLexer {
  std::string_view Name;
  std::string_view LineComments;   ///< separated by blanks
  std::string_view BlockComments;  ///< start, end, start, end …
  std::string_view Strings;        ///< start, end, start, end …
  std::string_view Sets;           ///< for each set of words the number of its Role, 0 for words inside comments
  bool CaseSensitive = true;
  bool Escapes = true;  ///< "\" keeps a quote from ending its string
  WordForm Form = WordForm::Plain;
  bool HasPreprocessor = false;  ///< C's
};

/// The lexer of a name; null for one that is not known.
const SciteLexer* FindSciteLexer(std::string_view name);

/// The number of a set that none of the lexer's Sets names.
inline constexpr std::string_view CustomarySets = "347567777";

}  // namespace import
