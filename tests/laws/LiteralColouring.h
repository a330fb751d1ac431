#pragma once
// The colouring rules as they are told: insertions into rich text, one match at a time, slow and without cleverness.
// The program's own pass must give the same colours; it knows nothing of this one, and this one nothing of it.
//
// Rich text is a row of units: a character of the text is one, a line end the seven of CR, LF and "\par ", a colour
// switch as many as it has characters. Results are given a character of the text, line ends left out.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "templates/Model.h"

namespace laws {

/// What a pass comes to.
struct LiteralResult {
  std::vector<int> Colours;  ///< a character of the text: the colour number in force, 0 for none
  bool StaysOpen = false;    ///< the line pass gives up: the whole document has to be coloured
  std::vector<std::pair<std::string, std::string>> Captured;  ///< synonyms in order: the word, the action word

  bool operator==(const LiteralResult&) const = default;
};

/// The whole-document pass over `text`, valid UTF-8 with line ends of any kind.
LiteralResult LiteralWhole(const templates::TemplateFields& fields, std::string_view text);

/// The line pass over whole lines; the last one's line end may be missing and is supplied. With `closeAtLineEnd` a run
/// that finds no end is closed with its line, otherwise the pass gives up there.
LiteralResult LiteralLines(const templates::TemplateFields& fields, std::string_view text, bool closeAtLineEnd);

}  // namespace laws
