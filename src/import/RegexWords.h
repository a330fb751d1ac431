#pragma once
// The words that a regular expression stands for, when they can be counted: "\/\/|#" are two, "(?:end)?if" are two,
// "\w+" are too many. Assertions (\b, ^, look-ahead) fall away, what may repeat stands once or not at all.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace import {

struct RegexWords {
  std::vector<std::string> Words;  ///< in order, without repeats, none empty
  bool Complete = true;            ///< the words are all that the expression finds, up to its assertions
  bool Asserted = false;           ///< an assertion other than a word boundary fell away
  bool AtLineStart = false;        ///< it finds only at the start of a line
  bool ToLineEnd = false;          ///< ".*" at its end: what it finds has the rest of the line
};

/// The words of an expression in the common syntax of Perl; blanks around it do not count.
RegexWords WordsOfRegex(std::string_view expression);

/// The characters that `expression` ("[a-zA-Z_][\w\-]*") allows in a word beside letters and digits: all that its
/// bracketed sets name, and "_" for \w.
std::string CharactersOfSets(std::string_view expression);

}  // namespace import
