#include "import/HighlightReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "import/LuaTables.h"
#include "import/RegexWords.h"
#include "import/WordClasses.h"
#include "platform/FileParsing.h"
#include "templates/Values.h"

namespace import {
namespace {

constexpr std::size_t ShortName = 4;  ///< a language's name that is also its extension is not longer

/// The fields of a table; none for any other value.
const std::vector<LuaField>& FieldsOf(const LuaValue& value) {
  static const std::vector<LuaField> None;
  return value.Table == nullptr ? None : value.Table->Fields;
}

const LuaValue& At(const LuaValue& value, std::string_view key) {
  static const LuaTable Empty;
  return (value.Table == nullptr ? Empty : *value.Table).At(key);
}

std::vector<std::string> TextsOf(const LuaValue& list) {
  std::vector<std::string> texts;
  for (const LuaField& field : FieldsOf(list))
    if (field.Value.Kind == LuaValue::Sort::Text) texts.emplace_back(templates::Trimmed(field.Value.Text));
  return texts;
}

std::string Shortened(std::string_view pattern) {
  constexpr std::size_t Longest = 60;
  pattern = templates::Trimmed(pattern);
  std::string shown(pattern.substr(0, Longest));
  std::replace_if(
      shown.begin(), shown.end(), [](unsigned char c) { return c < 0x20 || c >= 0x7F; }, ' ');
  return pattern.size() > Longest ? shown + "…" : shown;
}

class Reader {
 public:
  Reader(const LuaFile& lua, const std::string& file) : m_lua(lua) {
    m_definition.File = file;
    m_definition.Format = "highlight";
    m_definition.Losses = lua.Losses;
  }

  Definition Run(const NeighbourFiles& neighbours);

 private:
  void TakeKeywords();
  void TakePattern(const LuaValue& keywords, Role role);
  void TakeStrings();
  void TakePairs(const LuaValue& pairs);
  void TakeComments();
  void TakeComment(const LuaValue& comment);
  void TakePreprocessor();
  void TakeExtensions(const NeighbourFiles& neighbours);
  void Lose(std::size_t line, std::string what) { m_definition.Lose(line, std::move(what)); }
  void AddRange(Role role, std::string start, std::string end, std::size_t line) {
    m_definition.Ranges.push_back({role, std::move(start), std::move(end), line});
  }

  const LuaFile& m_lua;
  Definition m_definition;
  std::size_t m_words = 0;
};

/// The groups of words are numbered; keywords and types come first by custom, functions later.
Role RoleOfGroup(const std::string& id, const std::vector<std::string>& words) {
  constexpr std::array<Role, 6> Customs = {Role::Keyword,  Role::Type,      Role::Function,
                                           Role::Function, Role::Directive, Role::Literal};
  const auto number = templates::ParseInteger<std::int16_t>(id).value_or(1);
  const Role custom = Customs[static_cast<std::size_t>(std::clamp<int>(number, 1, Customs.size()) - 1)];
  return custom == Role::Keyword ? custom : ClassOfList(words, custom);
}

void Reader::TakeKeywords() {
  for (const LuaField& field : FieldsOf(m_lua.At("Keywords"))) {
    const LuaValue& keywords = field.Value;
    WordList list;
    list.Line = keywords.Line;
    if (m_words <= MostWords) list.Words = TextsOf(At(keywords, "List"));
    m_words += list.Words.size();
    list.Class = RoleOfGroup(At(keywords, "Id").Text, list.Words);
    if (At(keywords, "Regex").Kind == LuaValue::Sort::Text) TakePattern(keywords, list.Class);
    if (!list.Words.empty()) m_definition.Lists.push_back(std::move(list));
  }
}

/// Words that a pattern tells.
void Reader::TakePattern(const LuaValue& keywords, Role role) {
  const LuaValue& pattern = At(keywords, "Regex");
  RegexWords words = WordsOfRegex(pattern.Text);
  if (words.Complete && !words.Asserted && !words.AtLineStart && !words.ToLineEnd && !words.Words.empty())
    return m_definition.Lists.push_back({role, std::move(words.Words), pattern.Line});
  Lose(pattern.Line, "A template has no patterns: " + Shortened(pattern.Text));
}

void Reader::TakeStrings() {
  const LuaValue& strings = m_lua.At("Strings");
  const LuaValue& delimiter = At(strings, "Delimiter");
  const RegexWords quotes = WordsOfRegex(delimiter.Text);
  for (const std::string& quote : quotes.Words) AddRange(Role::Text, quote, quote, delimiter.Line);
  if (!quotes.Complete)
    Lose(delimiter.Line, "Only the strings between fixed marks are carried over: " + Shortened(delimiter.Text));
  TakePairs(At(strings, "DelimiterPairs"));
  const LuaValue& escape = At(strings, "Escape");
  m_definition.BackslashEscapes = escape.Kind == LuaValue::Sort::Nil || escape.Text.find("\\\\") != std::string::npos;
  if (const LuaValue& inside = At(strings, "Interpolation"); inside.Kind != LuaValue::Sort::Nil)
    Lose(inside.Line, "What stands for a value inside a string has no colour of its own.");
}

void Reader::TakePairs(const LuaValue& pairs) {
  for (const LuaField& field : FieldsOf(pairs)) {
    const RegexWords opens = WordsOfRegex(At(field.Value, "Open").Text);
    const RegexWords closes = WordsOfRegex(At(field.Value, "Close").Text);
    const bool paired = opens.Words.size() == closes.Words.size();
    if (opens.Words.empty() || (!paired && closes.Words.size() != 1)) {
      Lose(field.Value.Line, "The marks of these strings are patterns.");
      continue;
    }
    for (std::size_t i = 0; i < opens.Words.size(); ++i)
      AddRange(Role::Text, opens.Words[i], closes.Words[paired ? i : 0], field.Value.Line);
  }
}

void Reader::TakeComments() {
  for (const LuaField& field : FieldsOf(m_lua.At("Comments"))) TakeComment(field.Value);
}

void Reader::TakeComment(const LuaValue& comment) {
  const std::vector<std::string> marks = TextsOf(At(comment, "Delimiter"));
  const bool block = At(comment, "Block").Truth;
  if (marks.empty()) return;
  const RegexWords starts = WordsOfRegex(marks[0]);
  std::string end;
  if (block) {
    const RegexWords ends = WordsOfRegex(marks.size() > 1 ? marks[1] : marks[0]);
    if (ends.Words.empty())
      return Lose(comment.Line, "The end of this comment is a pattern: " + Shortened(marks.back()));
    end = ends.Words.front();
  }
  bool carried = false;
  for (const std::string& start : starts.Words) {
    // Found anywhere, a single letter or operator would turn half of a script into comments.
    if (starts.AtLineStart && start.size() == 1) continue;
    AddRange(Role::Comment, start, end, comment.Line);
    carried = true;
  }
  if (!carried) return Lose(comment.Line, "The start of this comment is a pattern: " + Shortened(marks[0]));
  if (starts.AtLineStart) Lose(comment.Line, "This comment begins anywhere, not at the start of a line alone.");
  if (At(comment, "Nested").Truth) Lose(comment.Line, "Comments in this comment: the first end mark ends both.");
}

void Reader::TakePreprocessor() {
  const LuaValue& preprocessor = m_lua.At("PreProcessor");
  const LuaValue& prefix = At(preprocessor, "Prefix");
  if (prefix.Kind != LuaValue::Sort::Text) return;
  const RegexWords starts = WordsOfRegex(prefix.Text);
  const auto isBlock = [](const Range& range) { return range.Start == "/*"; };
  if (starts.Words == std::vector<std::string>{"#"} &&
      std::any_of(m_definition.Ranges.begin(), m_definition.Ranges.end(), isBlock)) {
    // A whole line in one colour would swallow the start of a comment that goes on in the next one.
    const auto words = PreprocessorWords();
    m_definition.Lists.push_back({Role::Directive, {words.begin(), words.end()}, prefix.Line});
    return Lose(prefix.Line, "Of a preprocessor line the directive alone is coloured.");
  }
  if (!starts.Complete && !starts.ToLineEnd)
    return Lose(prefix.Line, "The preprocessor's mark is a pattern: " + Shortened(prefix.Text));
  for (const std::string& start : starts.Words) AddRange(Role::Directive, start, "", prefix.Line);
}

void Reader::TakeExtensions(const NeighbourFiles& neighbours) {
  const std::string title = platform::FileTitle(m_definition.File);
  std::vector<std::string>& extensions = m_definition.Extensions;
  std::vector<std::string> names;
  if (const auto text = neighbours("filetypes.conf")) {
    const LuaFile types = ReadLuaTables(*text, "filetypes.conf", [](std::string_view) { return std::nullopt; });
    for (const LuaField& field : FieldsOf(types.At("FileMapping"))) {
      if (At(field.Value, "Lang").Text != title) continue;
      for (std::string& extension : TextsOf(At(field.Value, "Extensions"))) extensions.push_back(std::move(extension));
      names = TextsOf(At(field.Value, "Filenames"));
    }
  }
  if (std::find(extensions.begin(), extensions.end(), title) == extensions.end())
    extensions.insert(title.size() <= ShortName ? extensions.begin() : extensions.end(), title);
  m_definition.TakePatterns(0, names);
}

Definition Reader::Run(const NeighbourFiles& neighbours) {
  m_definition.Name = m_lua.At("Description").Text;
  m_definition.CaseSensitive = !m_lua.At("IgnoreCase").Truth;
  const LuaValue& identifiers = m_lua.At("Identifiers");
  m_definition.Delimeters = DelimetersBut(identifiers.Text.empty() ? "_" : CharactersOfSets(identifiers.Text));
  m_definition.HasNumbers = true;  // the program knows numbers where a definition says nothing of them
  TakeComments();
  TakeStrings();
  TakePreprocessor();
  TakeKeywords();
  TakeExtensions(neighbours);
  TakeCredits(m_definition, m_lua.Comments);
  for (const LuaField& section : FieldsOf(m_lua.At("NestedSections")))
    Lose(section.Value.Line,
         "Sections in another language (" + At(section.Value, "Lang").Text + ") are not coloured as such.");
  return std::move(m_definition);
}

}  // namespace

ReadDefinition ReadHighlight(std::string_view text, const std::string& file, const NeighbourFiles& neighbours) {
  const LuaFile lua = ReadLuaTables(text, file, neighbours);
  if (!lua.Error.empty()) return ReadDefinition::Failed(lua.ErrorLine, lua.Error);
  if (lua.At("Description").Text.empty())
    return ReadDefinition::Failed(0, "The file gives no \"Description\": it is no definition of highlight's.");
  ReadDefinition result;
  result.Read = Reader(lua, file).Run(neighbours);
  return result;
}

}  // namespace import
