#include "import/TemplateMaker.h"

#include <algorithm>
#include <cctype>
#include <unordered_map>
#include <utility>

#include "import/WordClasses.h"
#include "rich_text/Encoding.h"

namespace import {
namespace {

using templates::colWord;

constexpr std::size_t LongestWord = 200;
constexpr std::size_t NamedExamples = 4;  ///< words that a message names

struct PaletteRow {
  const char* Name;
  rich_text::ColourValue Value;
};
/// In the order of Role, blue, green, red from the top.
constexpr PaletteRow Palette[] = {{"Green", 0x008000}, {"Maroon", 0x1414A0},  {"Blue", 0xE60000},
                                  {"Teal", 0x857500},  {"Magenta", 0x8C14C8}, {"Brown", 0x085E80},
                                  {"Slate", 0x6A585A}, {"Black", 0x000000}};

bool IsWordCharacter(char c) {
  return static_cast<unsigned char>(c) >= 0x80 || std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Blanks separate the fields of a colour word, and control characters are none of a script's words.
bool FitsAField(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](unsigned char c) { return c > 0x20 && c != 0x7F; });
}

/// Words that share a fate, for one message about all of them.
class Rejects {
 public:
  void Add(std::string_view word, std::size_t line) {
    if (m_count++ == 0) m_line = line;
    if (m_count <= NamedExamples) m_examples += (m_count > 1 ? ", " : "") + std::string(word.substr(0, 40));
  }
  /// Notes them, if there are any; `what` says what they are.
  void Tell(std::vector<Loss>& losses, const std::string& file, const std::string& what) const {
    if (m_count == 0) return;
    losses.push_back(
        {file, m_line,
         what + " (" + std::to_string(m_count) + "): " + m_examples + (m_count > NamedExamples ? ", …" : ".")});
  }

 private:
  std::size_t m_count = 0, m_line = 0;
  std::string m_examples;
};

class Maker {
 public:
  explicit Maker(Definition definition) : m_definition(std::move(definition)) {}

  MadeTemplate Run(const std::string& date);

 private:
  void SettleMarkup();
  void TakeRange(Range range);
  void TakeQuotes();
  void TakeQuote(char quote, const std::string& quotes);
  void TakeLists();
  void TakeWord(const WordList& list, const std::string& word);
  void MakeDelimeters();
  void Order();
  void Describe(const std::string& date);

  void Add(std::string start, std::int16_t endPoint, std::string end, Role role, bool include, std::size_t line = 0);
  bool HasDelimeter(std::string_view word) const {
    return word.find_first_of(m_definition.Delimeters) != std::string_view::npos;
  }
  void Lose(std::size_t line, std::string what) { m_definition.Lose(line, std::move(what)); }

  Definition m_definition;
  MadeTemplate m_made;
  std::unordered_map<std::string, std::string> m_taken;  ///< folded start word to start word
  std::unordered_map<std::string, std::string> m_ends;   ///< of the marks
  bool m_isShell = false;
  Rejects m_unfit, m_caseTwins;
};

/// Adds a colour word unless another has its start word, in any letter case.
void Maker::Add(std::string start, std::int16_t endPoint, std::string end, Role role, bool include, std::size_t line) {
  const auto [place, isNew] = m_taken.try_emplace(rich_text::LowerCase(start), start);
  if (!isNew) {
    if (place->second != start && m_definition.CaseSensitive) m_caseTwins.Add(start, line);
    return;
  }
  auto word = std::make_shared<colWord>();
  word->StartWord = std::move(start);
  word->EndPoint = endPoint;
  word->EndWord = std::move(end);
  word->Colour = static_cast<std::int16_t>(role);
  word->IncludeWord = include;
  m_made.Template.ColourWords.push_back(std::move(word));
}

void Maker::TakeRange(Range range) {
  if (range.Start.empty() || !FitsAField(range.Start) || !FitsAField(range.End) || range.Start.size() > LongestWord)
    return Lose(range.Line, "The mark \"" + range.Start + "\" does not fit a colour word.");
  // A letter before a quote would be found inside longer words too; the quote alone is found everywhere.
  const std::size_t mark = range.Start.find_first_of(m_definition.Delimeters);
  if (mark != std::string::npos && mark > 0 && IsWordCharacter(range.Start[0])) {
    const bool isQuote = std::string_view("\"'`").find(range.Start[mark]) != std::string_view::npos;
    if (isQuote && (range.Start.size() > mark + 1 || range.End == range.Start.substr(mark)))
      range.Start.erase(0, mark);
    else if (mark <= 2)
      return Lose(range.Line,
                  "The mark \"" + range.Start + "\" would be found at the end of longer words; it is left out.");
  }
  if (m_taken.contains(rich_text::LowerCase(range.Start))) {
    if (m_ends[range.Start] != range.End)
      Lose(range.Line, "The mark \"" + range.Start + "\" begins something else already.");
    return;
  }
  m_ends[range.Start] = range.End;
  if (range.End.empty()) return Add(range.Start, colWord::EndOfLine, "", range.Class, true, range.Line);
  // With the start word in it the run would end at once where the end word is a part of it.
  const bool include = range.Start.find(range.End) == std::string::npos;
  Add(range.Start, colWord::UntilWord, range.End, range.Class, include, range.Line);
}

/// In the text of a page an apostrophe begins nothing, and a quote behind which a tag ends is the end of a value.
void Maker::SettleMarkup() {
  auto& ranges = m_definition.Ranges;
  if (std::none_of(ranges.begin(), ranges.end(), [](const Range& range) { return range.Start == "<!--"; })) return;
  for (Range& range : ranges)
    if (range.Class == Role::Text && range.Start == "'") range.Start = "='";
  for (const char* end : {"\"/>", "\">", "'/>", "'>"}) Add(end, colWord::EndOfWord, "", Role::Plain, true);
  Add("=''", colWord::EndOfWord, "", Role::Plain, true);
}

/// What keeps a quote that stands alone from turning the rest of the file inside out: short strings that hold a quote,
/// and pairs that end a string but hardly ever begin one.
void Maker::TakeQuotes() {
  // In a shell a backslash keeps a quote from beginning a string; elsewhere it stands before quotes inside strings.
  const auto has = [&](const char* word) {
    const auto holds = [&](const WordList& list) {
      return std::find(list.Words.begin(), list.Words.end(), word) != list.Words.end();
    };
    return std::any_of(m_definition.Lists.begin(), m_definition.Lists.end(), holds);
  };
  m_isShell = has("fi") && has("done");
  std::string quotes;
  for (const Range& range : m_definition.Ranges)
    if (range.Class == Role::Text && range.Start == range.End && range.Start.size() == 1 &&
        std::string_view("\"'`").find(range.Start[0]) != std::string_view::npos &&
        quotes.find(range.Start[0]) == std::string::npos)
      quotes += range.Start;
  for (char quote : quotes) TakeQuote(quote, quotes);
}

void Maker::TakeQuote(char quote, const std::string& quotes) {
  const std::string q(1, quote);
  const auto shortText = [&](const std::string& inside) {
    Add(q + inside + q, colWord::EndOfWord, "", Role::Text, true);
  };
  const auto plain = [&](const std::string& word) { Add(word, colWord::EndOfWord, "", Role::Plain, true); };
  for (char other : quotes)
    if (other != quote) shortText(std::string(1, other));
  if (m_definition.BackslashEscapes && quote != '`') {
    shortText('\\' + q);
    shortText("\\\\");
  }
  for (const char* inside : {")", ",", ";", "}", "]", ":"}) shortText(inside);
  for (const char* bracket : {")", "]", "}"}) {
    plain(q + bracket);
    plain(bracket + q);
  }
  if (m_isShell) plain('\\' + q);
  if (m_definition.BackslashEscapes && quote != '`')
    for (const char* before : {"\\n", "\\t", "\\r", "%s", "%d"}) plain(before + q);
}

void Maker::TakeWord(const WordList& list, const std::string& word) {
  if (word.empty()) return;
  if (!FitsAField(word) || word.size() > LongestWord) return m_unfit.Add(word, list.Line);
  Add(word, colWord::EndOfWord, "", ClassOfWord(list.Class, word), true, list.Line);
}

void Maker::TakeLists() {
  std::size_t count = 0;
  for (const WordList& list : m_definition.Lists)
    for (const std::string& word : list.Words) {
      if (++count > MostWords)
        return Lose(list.Line, "There are more than " + std::to_string(MostWords) + " words; the rest is left out.");
      TakeWord(list, word);
    }
}

/// Marks must be found wherever they stand: without a delimiter in it a mark counts between delimiters alone.
void Maker::MakeDelimeters() {
  std::string& delimeters = m_definition.Delimeters;
  for (const Range& range : m_definition.Ranges) {
    if (HasDelimeter(range.Start)) continue;
    const auto mark = std::find_if_not(range.Start.begin(), range.Start.end(), IsWordCharacter);
    if (mark != range.Start.end() && static_cast<unsigned char>(*mark) > 0x20) delimeters += *mark;
  }
}

void Maker::Order() {
  auto& words = m_made.Template.ColourWords;
  std::stable_sort(words.begin(), words.end(), [&](const auto& left, const auto& right) {
    const bool leftMark = HasDelimeter(left->StartWord), rightMark = HasDelimeter(right->StartWord);
    if (leftMark != rightMark) return leftMark;
    return leftMark && left->StartWord.size() > right->StartWord.size();
  });
}

void Maker::Describe(const std::string& date) {
  templates::EditorTemplate& made = m_made.Template;
  made.Name = m_definition.Name;
  for (const std::string& extension : m_definition.Extensions)
    made.Extension += (made.Extension.empty() ? "" : ";") + extension;
  made.Delimeters = m_definition.Delimeters;
  made.CaseSensitive = m_definition.CaseSensitive;
  made.HelpFile.clear();
  made.Font = templates::EditorTemplate::FixedWidthFont;
  made.Version = m_definition.Version;
  made.Author = m_definition.Author;
  made.Date = date;
  made.Comments = "Made from " + m_definition.File + " (" + m_definition.Format +
                  "), version: " + (m_definition.Version.empty() ? "not told" : m_definition.Version) +
                  ", licence: " + (m_definition.Licence.empty() ? "not told in the file" : m_definition.Licence) + '.';
  for (const PaletteRow& row : Palette) made.Palette.push_back({row.Value, row.Name});
}

MadeTemplate Maker::Run(const std::string& date) {
  SettleMarkup();
  MakeDelimeters();
  // What stands for a stretch wins over a word; a longer stretch is told apart from a shorter one by Order.
  for (const Range& range : m_definition.Ranges) TakeRange(range);
  TakeQuotes();
  TakeLists();
  if (m_definition.HasNumbers)
    for (std::string& number : NumberWords()) Add(std::move(number), colWord::EndOfWord, "", Role::Literal, true);
  Order();
  m_unfit.Tell(m_definition.Losses, m_definition.File, "Words with blanks in them, or too long for a colour word");
  m_caseTwins.Tell(m_definition.Losses, m_definition.File,
                   "Words that differ from another in letter case alone; the first stays");
  Describe(date);
  m_made.Losses = std::move(m_definition.Losses);
  return std::move(m_made);
}

}  // namespace

MadeTemplate MakeTemplate(Definition definition, const std::string& date) {
  return Maker(std::move(definition)).Run(date);
}

}  // namespace import
