#include "LiteralColouring.h"

#include <algorithm>
#include <cstddef>

#include "StyledLaws.h"
#include "tests/support/Characters.h"

namespace laws {
namespace {

using Units = std::u32string;

/// Set in every unit that is no character of the text, and also in those of a line end.
constexpr char32_t Code = 0x8000'0000, PartOfLineEnd = 0x4000'0000;

bool IsText(char32_t unit) {
  return (unit & Code) == 0;
}
bool EndsLine(char32_t unit) {
  return (unit & PartOfLineEnd) != 0;
}

Units MarkedUnits(std::string_view ascii, char32_t marks) {
  Units units;
  for (const char c : ascii) units += static_cast<char32_t>(static_cast<unsigned char>(c) | marks);
  return units;
}

const Units LineEnd = MarkedUnits("\r\n\\par ", Code | PartOfLineEnd);
const Units Paragraph = MarkedUnits("\\par ", Code | PartOfLineEnd);

Units SwitchTo(int colour) {
  return MarkedUnits("\\cf" + std::to_string(colour) + " ", Code);
}

Units TextUnits(std::string_view text) {
  Units units;
  for (const auto& [character, colour] : Characters({std::string(text), {}, {}}))
    units += character == U'\n' ? LineEnd : Units(1, character);
  return units;
}

/// The 1-based position of `word` in `units` at or after `start`; 0 if there is none. Nothing is found nowhere.
std::size_t InStr(std::size_t start, const Units& units, const Units& word) {
  if (word.empty() || start > units.size()) return 0;
  const std::size_t found = units.find(word, start - 1);
  return found == Units::npos ? 0 : found + 1;
}

/// Puts `inserted` before the unit at the 1-based `position`, or at the end when the position lies beyond it.
void Insert(Units& units, std::size_t position, const Units& inserted) {
  units.insert(std::min(position - 1, units.size()), inserted);
}

/// A colour word, folded; its characters are as many as before.
struct LiteralWord {
  Units StartWord, EndWord;
  int EndPoint, Colour;
  bool IncludeWord, HoldsDelimeter;
};

/// A template as the passes read it.
class LiteralTemplate {
 public:
  explicit LiteralTemplate(const templates::TemplateFields& fields)
      : m_caseSensitive(fields.CaseSensitive), m_colours(static_cast<int>(fields.Colours.size())) {
    for (const std::string& delimeter : fields.Delimeters) m_delimeters += tests::FromUtf8(delimeter);
    for (const auto& word : fields.ColWords) AddWord(*word);
    for (const auto& word : fields.Words) {
      AllActions.push_back(CaseFold(tests::FromUtf8(word->Name)));
      if (CapturesSynonyms(*word)) Capturing.push_back(AllActions.back());
    }
  }

  Units CaseFold(Units units) const {
    if (m_caseSensitive) return units;
    for (char32_t& unit : units)
      if (IsText(unit)) unit = rich_text::LowerCase(unit);
    return units;
  }

  bool IsDelimeter(char32_t unit) const { return m_delimeters.find(unit & ~(Code | PartOfLineEnd)) != Units::npos; }

  /// Whether the unit at a 1-based position is a delimiter; what lies outside is none.
  bool IsDelimeterAt(const Units& units, std::size_t position) const {
    return position >= 1 && position <= units.size() && IsDelimeter(units[position - 1]);
  }

  /// The rule of delimiters on both sides, for a word of `length` that starts at the 1-based `q`.
  bool StandsAlone(const Units& units, std::size_t q, std::size_t length) const {
    return (q == 1 || IsDelimeterAt(units, q - 1)) && (q == units.size() || IsDelimeterAt(units, q + length));
  }

  bool Counts(const Units& units, std::size_t q, const LiteralWord& word) const {
    return word.HoldsDelimeter || StandsAlone(units, q, word.StartWord.size());
  }

  /// The words that occur at all: what is inserted into rich text holds no others.
  std::vector<const LiteralWord*> WordsIn(const Units& units) const {
    const Units folded = CaseFold(units);
    std::vector<const LiteralWord*> words;
    for (const LiteralWord& word : ColWords)
      if (InStr(1, folded, word.StartWord) > 0) words.push_back(&word);
    return words;
  }

  /// Reads the colours back: a character has the colour of the last switch before it.
  std::vector<int> ColoursOf(const Units& units) const {
    static const Units Switch = MarkedUnits("\\cf", Code);
    std::vector<int> colours;
    int colour = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
      if (IsText(units[i])) colours.push_back(colour);
      if (units.compare(i, Switch.size(), Switch) != 0) continue;
      std::string number;
      for (i += Switch.size(); units[i] != (U' ' | Code); ++i) number += static_cast<char>(units[i] & 0x7F);
      colour = std::stoi(number);
      if (colour < 1 || colour > m_colours) colour = 0;
    }
    return colours;
  }

  std::vector<LiteralWord> ColWords;
  std::vector<Units> AllActions, Capturing;  ///< the action words, folded; those that capture synonyms

 private:
  static bool CapturesSynonyms(const templates::Word& word) {
    for (const auto& action : word.Actions)
      if (action->Action == 3) return true;
    return false;
  }

  void AddWord(const templates::colWord& word) {
    const Units start = tests::FromUtf8(word.StartWord);
    const bool holdsDelimeter =
        std::any_of(start.begin(), start.end(), [this](char32_t unit) { return IsDelimeter(unit); });
    ColWords.push_back({CaseFold(start), CaseFold(tests::FromUtf8(word.EndWord)), word.EndPoint, word.Colour,
                        word.IncludeWord, holdsDelimeter});
  }

  bool m_caseSensitive;
  int m_colours;
  Units m_delimeters;
};

/// Where the run of `word` ends whose switch of `switchLength` units stands at `a`; 0 if it finds no end. `folded` is
/// `units` folded, the switch included.
std::size_t EndPosition(const Units& units, const Units& folded, const LiteralWord& word, std::size_t a,
                        std::size_t switchLength) {
  if (word.EndPoint == 0) return a + switchLength + word.StartWord.size();
  if (word.EndPoint == 1) return InStr(a, units, Paragraph);
  if (word.EndPoint != 2) return 0;
  const std::size_t e = InStr(a, folded, word.EndWord);
  return word.IncludeWord && e >= 1 ? e + word.EndWord.size() : e;
}

/// The colour loop of the whole document.
class WholePass {
 public:
  WholePass(const LiteralTemplate& literal, Units body)
      : m_template(literal), m_r(std::move(body)), m_words(literal.WordsIn(m_r)) {}

  Units Run() {
    while (m_p != 0 && Round()) {
    }
    return std::move(m_r);
  }

 private:
  bool Round() {
    const Units f = m_template.CaseFold(m_r);
    std::size_t best = m_r.size() + 1;
    const LiteralWord* found = nullptr;
    for (const LiteralWord* word : m_words) {
      std::size_t q = InStr(m_p, f, word->StartWord);
      while (q >= 1 && q < best && !m_template.Counts(m_r, q, *word)) q = InStr(q + 1, f, word->StartWord);
      if (q >= 1 && q < best) best = q, found = word;
    }
    if (found) Colour(*found, best);
    return found != nullptr;
  }

  void Colour(const LiteralWord& word, std::size_t a) {
    if (!word.IncludeWord) a += word.StartWord.size();
    const Units begin = SwitchTo(word.Colour);
    Insert(m_r, a, begin);
    const std::size_t e = EndPosition(m_r, m_template.CaseFold(m_r), word, a, begin.size());
    if (e > 0) Insert(m_r, e, SwitchTo(0));
    // Behind an end that was found the end word's length is skipped, whatever the end point.
    m_p = e > 0 ? e + word.EndWord.size() + 5 : 0;
  }

  const LiteralTemplate& m_template;
  Units m_r;
  std::vector<const LiteralWord*> m_words;
  std::size_t m_p = 1;
};

/// The rounds of the line pass.
class LinePass {
 public:
  LinePass(const LiteralTemplate& literal, Units piece, bool closeAtLineEnd, LiteralResult& result)
      : m_template(literal),
        m_piece(std::move(piece)),
        m_f(literal.CaseFold(m_piece)),
        m_words(literal.WordsIn(m_piece)),
        m_closeAtLineEnd(closeAtLineEnd),
        m_result(result) {}

  Units Run() {
    while (!m_result.StaysOpen && Round()) {
    }
    return std::move(m_piece);
  }

 private:
  bool Round() {
    std::size_t best = m_piece.size() + 1;
    const Units* action = nullptr;
    const LiteralWord* found = nullptr;
    for (const Units& name : m_template.Capturing) {
      const std::size_t q = InStr(m_pa, m_f, name);
      if (q >= 1 && q <= best && m_template.StandsAlone(m_piece, q, name.size())) best = q, action = &name;
    }
    for (const LiteralWord* word : m_words) {
      const std::size_t q = InStr(m_p, m_f, word->StartWord);
      if (q >= 1 && q < best && m_template.Counts(m_piece, q, *word)) best = q, found = word;
    }
    if (found)
      Colour(*found, best);
    else if (action)
      Capture(*action, best);
    return found || action;
  }

  void Colour(const LiteralWord& word, std::size_t a) {
    if (!word.IncludeWord) a += word.StartWord.size();
    const Units begin = SwitchTo(word.Colour);
    Insert(m_piece, a, begin);
    Insert(m_f, a, begin);
    std::size_t e = EndPosition(m_piece, m_f, word, a, begin.size());
    if (e < 1) {
      m_result.StaysOpen = !m_closeAtLineEnd;
      if (m_result.StaysOpen) return;
      e = InStr(a, m_piece, Paragraph);
      if (e < 1) e = m_piece.size() + 1;
    }
    Insert(m_piece, e, SwitchTo(0));
    Insert(m_f, e, SwitchTo(0));
    // Else the next search starts at the switch just inserted, whose blank then stands before the text.
    if (word.EndPoint == 2 && !word.IncludeWord) e += word.EndWord.size() + 5;
    m_p = m_pa = e;
  }

  /// Looks for the tokens before and behind the action word in the folded text of its line alone: switches inserted
  /// before do not count, and a line end ends the line. Without a second token the rest of the line is done; with one,
  /// the search for action words goes on behind it, whether or not a first token is there.
  void Capture(const Units& name, std::size_t q) {
    std::size_t begin = q - 1, end = q - 1;
    while (begin > 0 && !EndsLine(m_f[begin - 1])) --begin;
    while (end < m_f.size() && !EndsLine(m_f[end])) ++end;
    Units line;
    std::vector<std::size_t> places;
    for (std::size_t i = begin; i < end; ++i) {
      if (!IsText(m_f[i])) continue;
      line += m_template.IsDelimeter(m_f[i]) ? U' ' : m_f[i];
      places.push_back(i);
    }
    const auto here = static_cast<std::size_t>(std::find(places.begin(), places.end(), q - 1) - places.begin());
    const std::size_t wordEnd = SkipBack(line, here, true);
    const std::size_t wordBegin = SkipBack(line, wordEnd, false);
    const std::size_t secondBegin = Skip(line, here + name.size(), true);
    const std::size_t secondEnd = Skip(line, secondBegin, false);
    m_pa = places[secondEnd - 1] + 2;
    if (wordBegin != wordEnd && secondBegin != secondEnd)
      Keep(line.substr(wordBegin, wordEnd - wordBegin), line.substr(secondBegin, secondEnd - secondBegin));
  }

  /// From `i` on over blanks, or over anything else.
  static std::size_t Skip(const Units& line, std::size_t i, bool blanks) {
    while (i < line.size() && (line[i] == U' ') == blanks) ++i;
    return i;
  }
  /// The same backward, from before `i`.
  static std::size_t SkipBack(const Units& line, std::size_t i, bool blanks) {
    while (i > 0 && (line[i - 1] == U' ') == blanks) --i;
    return i;
  }

  void Keep(const Units& word, const Units& second) {
    const std::vector<Units>& names = m_template.AllActions;
    if (std::find(names.begin(), names.end(), m_template.CaseFold(second)) != names.end())
      m_result.Captured.emplace_back(tests::ToUtf8(word), tests::ToUtf8(second));
  }

  const LiteralTemplate& m_template;
  Units m_piece, m_f;
  std::vector<const LiteralWord*> m_words;
  bool m_closeAtLineEnd;
  LiteralResult& m_result;
  std::size_t m_p = 1, m_pa = 1;
};

}  // namespace

LiteralResult LiteralWhole(const templates::TemplateFields& fields, std::string_view text) {
  const LiteralTemplate literal(fields);
  Units body = MarkedUnits("\\deflang1033\\pard\\plain\\f0\\fs20 ", Code);
  body += TextUnits(text) + LineEnd + MarkedUnits("}", Code);
  LiteralResult result;
  result.Colours = literal.ColoursOf(WholePass(literal, std::move(body)).Run());
  return result;
}

LiteralResult LiteralLines(const templates::TemplateFields& fields, std::string_view text, bool closeAtLineEnd) {
  const LiteralTemplate literal(fields);
  Units piece = TextUnits(text);
  if (piece.empty() || !EndsLine(piece.back())) piece += LineEnd;
  LiteralResult result;
  piece = LinePass(literal, std::move(piece), closeAtLineEnd, result).Run();
  if (!result.StaysOpen) result.Colours = literal.ColoursOf(piece);
  return result;
}

}  // namespace laws
