#include "import/KdeReader.h"

#include <algorithm>
#include <cctype>
#include <deque>
#include <memory>
#include <set>
#include <utility>

#include "import/KdeSource.h"
#include "import/RegexWords.h"
#include "rich_text/Encoding.h"
#include "templates/Values.h"

namespace import {
namespace {

constexpr std::string_view StandardDelimeters = ".():!+,-<=>%&*/;?[]^{|}~\\\t\"'`";
constexpr std::size_t MostSources = 10;
constexpr int MostHops = 3;  ///< contexts looked through for the end of a stretch

bool IsStretch(std::optional<Role> role) {
  return role == Role::Comment || role == Role::Text;
}

/// The words that a rule finds, if they can be counted.
RegexWords WordsOfRule(const XmlElement& rule) {
  RegexWords words;
  const std::string& text = rule.Attribute("String");
  if (rule.Name == "RegExpr") return WordsOfRegex(text);
  if (rule.Name == "DetectChar" || rule.Name == "RangeDetect")
    words.Words = {rule.Attribute("char")};
  else if (rule.Name == "Detect2Chars")
    words.Words = {rule.Attribute("char") + rule.Attribute("char1")};
  else if (rule.Name == "StringDetect" || rule.Name == "WordDetect")
    words.Words = {text};
  std::erase(words.Words, "");
  return words;
}

/// An item's text, which may stand on a line of its own.
std::string WithoutBlanks(std::string_view text) {
  constexpr std::string_view Blanks = " \t\r\n";
  const std::size_t start = std::min(text.find_first_not_of(Blanks), text.size());
  return std::string(text.substr(start, text.find_last_not_of(Blanks) + 1 - start));
}

/// The mark without the letters that say of which sort the string is: u8" is a string as " is one. A single quote has
/// other uses where it begins no string by itself.
std::string WithoutPrefix(const std::string& mark) {
  const std::size_t quote = mark.find_first_of("\"`");
  const bool isPrefix =
      quote != std::string::npos && std::all_of(mark.begin(), mark.begin() + static_cast<std::ptrdiff_t>(quote),
                                                [](unsigned char c) { return std::isalnum(c) != 0; });
  return isPrefix ? mark.substr(quote) : mark;
}

class Reader {
 public:
  Reader(KdeSource source, const NeighbourFiles& neighbours) : m_neighbours(neighbours) {
    m_definition.File = source.File();
    m_definition.Format = "KDE";
    m_sources.push_back(std::make_unique<KdeSource>(std::move(source)));
  }

  Definition Run();

 private:
  /// A context that is reached.
  struct Place {
    const KdeSource* Source;
    const XmlElement* Context;
    std::string Mark;  ///< what leads into it, where that is drawn as part of its words ("#")
    bool IsBase;       ///< its rules are those of the start of a file
  };

  void TakeHead();
  void TakeComments(const XmlElement& general);
  void TakeDelimeters();
  void WalkContexts();
  void WalkRule(const Place& place, const XmlElement& rule);
  void Include(const Place& place, const XmlElement& rule);
  void Reach(const KdeSource& source, const std::string& context, const std::string& mark, bool isBase);
  void TakeList(const Place& place, const XmlElement& rule, Role role);
  void TakeItems(const KdeSource& source, const std::string& name, WordList& words, std::size_t depth);
  void TakeWords(const Place& place, const XmlElement& rule, Role role);
  void AddList(const Place& place, WordList list);
  bool TakeStretch(const Place& place, const XmlElement& rule);
  bool AddStretch(const Place& place, const XmlElement& rule, Role role, const std::string& start,
                  const std::string& end);
  void SettleQuotes();
  std::optional<std::string> EndOf(const KdeSource& source, const XmlElement& context, std::string_view start,
                                   int hops) const;
  const KdeSource* SourceOf(const std::string& language);
  void Lose(std::size_t line, std::string what) { m_definition.Lose(line, std::move(what)); }
  /// A loss is told of the file itself, and once.
  void LoseOnce(const Place& place, std::size_t line, const std::string& what) {
    if (m_told.insert(what).second) m_definition.Losses.push_back({place.Source->File(), line, what});
  }

  void LoseSection(const Place& place, const XmlElement& rule, const std::string& language) {
    LoseOnce(place, rule.Line, "Sections in another language (" + language + ") are not coloured as such.");
  }

  const NeighbourFiles& m_neighbours;
  std::vector<std::unique_ptr<KdeSource>> m_sources;
  std::map<std::string, const KdeSource*> m_languages;
  std::deque<Place> m_toWalk;
  std::set<const XmlElement*> m_reached;
  std::set<std::pair<const XmlElement*, std::string>> m_listsTaken;
  std::set<std::string> m_told;
  std::size_t m_words = 0;
  mutable std::size_t m_stepsLeft = 1'000'000;  ///< rules that may be looked at for the ends of stretches
  std::size_t m_ownComments = 0;  ///< the ranges that the file names for commenting out stand first, and stay
  Definition m_definition;
};

void Reader::TakeHead() {
  const XmlElement& root = m_sources.front()->Root();
  m_definition.Name = root.Attribute("name");
  m_definition.Version = root.Attribute("version");
  m_definition.Author = root.Attribute("author");
  m_definition.Licence = root.Attribute("license");
  std::string_view patterns = root.Attribute("extensions");
  std::vector<std::string> parts;
  while (!patterns.empty()) {
    const std::size_t end = std::min(patterns.find(';'), patterns.size());
    const std::string_view pattern = templates::Trimmed(patterns.substr(0, end));
    if (!pattern.empty()) parts.emplace_back(pattern);
    patterns.remove_prefix(std::min(end + 1, patterns.size()));
  }
  m_definition.TakePatterns(root.Line, parts);
}

void Reader::TakeDelimeters() {
  const XmlElement* general = m_sources.front()->Root().Child("general");
  const XmlElement* keywords = general == nullptr ? nullptr : general->Child("keywords");
  std::string delimeters(StandardDelimeters);
  const std::string& caseSensitive =
      (keywords == nullptr ? m_sources.front()->Root() : *keywords).Attribute("casesensitive");
  m_definition.CaseSensitive =
      caseSensitive.empty() || caseSensitive == "1" || rich_text::LowerCase(caseSensitive) == "true";
  if (keywords != nullptr) {
    for (char weak : keywords->Attribute("weakDeliminator")) std::erase(delimeters, weak);
    delimeters += keywords->Attribute("additionalDeliminator");
  }
  for (char c : delimeters)
    if ((c == '\t' || (c > 0x20 && c < 0x7F)) && m_definition.Delimeters.find(c) == std::string::npos)
      m_definition.Delimeters += c;
}

/// The marks for commenting out, which are those of the language.
void Reader::TakeComments(const XmlElement& general) {
  const XmlElement* comments = general.Child("comments");
  if (comments == nullptr) return;
  for (const XmlElement& comment : comments->Children) {
    const bool line = comment.Attribute("name") == "singleLine";
    const std::string& start = comment.Attribute("start");
    const std::string& end = comment.Attribute("end");
    if (!start.empty() && (line || !end.empty()))
      m_definition.Ranges.push_back({Role::Comment, start, line ? "" : end, comment.Line});
  }
}

/// The source of another language, by the name that KDE's file of it would have; null when it is not there.
const KdeSource* Reader::SourceOf(const std::string& language) {
  const auto [place, isNew] = m_languages.try_emplace(language, nullptr);
  if (!isNew || m_sources.size() >= MostSources) return place->second;
  std::string file;
  for (char c : rich_text::LowerCase(language))
    if (c == '+')
      file += 'p';
    else if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_')
      file += c;
  file += ".xml";
  const auto text = m_neighbours(file);
  if (!text) return nullptr;
  XmlDocument document = ReadXml(*text);
  if (!document.Error.empty() || !KdeSource::IsDefinition(document.Root)) return nullptr;
  if (document.Root.Attribute("name") != language) return nullptr;
  m_sources.push_back(std::make_unique<KdeSource>(std::move(document.Root), file));
  return place->second = m_sources.back().get();
}

void Reader::Reach(const KdeSource& source, const std::string& context, const std::string& mark, bool isBase) {
  const XmlElement* found = source.Context(context.empty() ? source.FirstContext() : context);
  if (found != nullptr && m_reached.insert(found).second) m_toWalk.push_back({&source, found, mark, isBase});
}

void Reader::WalkContexts() {
  Reach(*m_sources.front(), "", "", true);
  while (!m_toWalk.empty()) {
    const Place place = m_toWalk.front();
    m_toWalk.pop_front();
    const bool isFirst = place.Context == m_sources.front()->Context(m_sources.front()->FirstContext());
    if (!isFirst && IsStretch(place.Source->RoleOf(place.Context->Attribute("attribute")))) continue;
    for (const XmlElement& rule : place.Context->Children) WalkRule(place, rule);
    const KdeTarget fallthrough = KdeTarget::Of(place.Context->Attribute("fallthroughContext"));
    if (!fallthrough.Name.empty() && fallthrough.Language.empty())
      Reach(*place.Source, fallthrough.Name, place.Mark, place.IsBase);
  }
}

void Reader::WalkRule(const Place& place, const XmlElement& rule) {
  if (rule.Name == "IncludeRules") return Include(place, rule);
  if (TakeStretch(place, rule)) return;
  const std::string& attribute = rule.Attribute("attribute");
  const auto role = place.Source->RoleOf(attribute.empty() ? place.Context->Attribute("attribute") : attribute);
  if (role && rule.Name == "keyword") TakeList(place, rule, *role);
  constexpr std::string_view WordRules[] = {"WordDetect", "StringDetect", "RegExpr", "Detect2Chars"};
  if (role && std::find(std::begin(WordRules), std::end(WordRules), rule.Name) != std::end(WordRules))
    TakeWords(place, rule, *role);
  if (role == Role::Literal && rule.Name != "keyword" && rule.Name != "WordDetect") m_definition.HasNumbers = true;
  const KdeTarget target = KdeTarget::Of(rule.Attribute("context"));
  if (!target.Language.empty()) return LoseSection(place, rule, target.Language);
  // Behind a number there are its suffixes, and they are no words elsewhere.
  if (target.Name.empty() || (role == Role::Literal && rule.Name != "keyword")) return;
  // "#" leads to the directives, each of which is one word with it.
  const RegexWords marks = WordsOfRule(rule);
  const bool isMark =
      role == Role::Directive && marks.Complete && marks.Words.size() == 1 && marks.Words[0].size() == 1;
  Reach(*place.Source, target.Name, isMark ? marks.Words[0] : place.Mark, false);
}

void Reader::Include(const Place& place, const XmlElement& rule) {
  const KdeTarget target = KdeTarget::Of(rule.Attribute("context"));
  if (target.Language.empty()) {
    if (!target.Name.empty()) Reach(*place.Source, target.Name, place.Mark, place.IsBase);
    return;
  }
  // Elsewhere than at the start of a file another language is a section in it.
  if (!place.IsBase) return LoseSection(place, rule, target.Language);
  if (const KdeSource* other = SourceOf(target.Language)) return Reach(*other, target.Name, place.Mark, true);
  LoseOnce(place, rule.Line, "The rules of the definition \"" + target.Language + "\" are not beside the file.");
}

/// The words of a list and of the lists that it includes.
void Reader::TakeItems(const KdeSource& source, const std::string& name, WordList& words, std::size_t depth) {
  const XmlElement* list = source.List(name);
  if (list == nullptr || depth > MostNesting) return;
  if (words.Line == 0) words.Line = list->Line;
  for (const XmlElement& item : list->Children) {
    if (m_words > MostWords) return;
    ++m_words;
    const std::string text = WithoutBlanks(item.Text);
    if (item.Name == "item") words.Words.push_back(text);
    if (item.Name != "include") continue;
    const KdeTarget target = KdeTarget::Of(text);
    const KdeSource* other = target.Language.empty() ? &source : SourceOf(target.Language);
    if (other != nullptr)
      TakeItems(*other, target.Name, words, depth + 1);
    else
      Lose(item.Line, "The words of the definition \"" + target.Language + "\" are not beside the file.");
  }
}

/// Notes words. Behind a mark there are directives alone, and the mark is a part of each.
void Reader::AddList(const Place& place, WordList list) {
  if (!place.Mark.empty()) {
    if (list.Class != Role::Directive) return;
    for (std::string& word : list.Words)
      if (!word.starts_with(place.Mark)) word.insert(0, place.Mark);
  }
  if (!list.Words.empty()) m_definition.Lists.push_back(std::move(list));
}

void Reader::TakeList(const Place& place, const XmlElement& rule, Role role) {
  const std::string& name = rule.Attribute("String");
  const XmlElement* list = place.Source->List(name);
  const KdeTarget target = KdeTarget::Of(name);
  const KdeSource* source = target.Language.empty() ? place.Source : SourceOf(target.Language);
  if (source == nullptr)
    return LoseOnce(place, rule.Line,
                    "The words of the definition \"" + target.Language + "\" are not beside the file.");
  if (list != nullptr && !m_listsTaken.emplace(list, place.Mark).second) return;
  WordList words;
  words.Class = role;
  TakeItems(*source, target.Language.empty() ? name : target.Name, words, 0);
  AddList(place, std::move(words));
}

/// Words that a rule names itself.
void Reader::TakeWords(const Place& place, const XmlElement& rule, Role role) {
  if (rule.Flag("lookAhead") || rule.Flag("dynamic")) return;
  if (rule.Name == "Detect2Chars" && role == Role::Literal) return;  // "0x" begins a number
  RegexWords words = WordsOfRule(rule);
  const bool exact = words.Complete && !words.Asserted && !words.ToLineEnd;
  // Of directives the blanks between "#" and the name are what cannot be counted.
  if (!exact && (role != Role::Directive || words.ToLineEnd)) words.Words.clear();
  std::erase_if(words.Words, [&](const std::string& word) {
    const bool isSign =
        std::none_of(word.begin(), word.end(), [](unsigned char c) { return std::isalnum(c) != 0 || c >= 0x80; });
    return isSign || (word.size() < 3 && !exact);
  });
  if (words.Words.empty()) {
    if (rule.Name == "RegExpr" && role != Role::Literal && !IsStretch(role))
      LoseOnce(place, rule.Line, "Words that only patterns tell are not coloured, this one among them.");
    return;
  }
  AddList(place, {role, std::move(words.Words), rule.Line});
}

/// Takes a rule that leads into a comment or a string; false for any other rule.
bool Reader::TakeStretch(const Place& place, const XmlElement& rule) {
  const KdeTarget target = KdeTarget::Of(rule.Attribute("context"));
  const auto ruleRole = place.Source->RoleOf(rule.Attribute("attribute"));
  const bool isWord = rule.Name == "keyword" || (ruleRole && !IsStretch(ruleRole));
  if (isWord && rule.Name != "DetectChar" && rule.Name != "Detect2Chars") return false;  // a text may follow it
  if (rule.Name == "RangeDetect" && IsStretch(ruleRole))
    return AddStretch(place, rule, *ruleRole, rule.Attribute("char"), rule.Attribute("char1"));
  if (rule.Name == "HlCChar" && IsStretch(ruleRole)) return AddStretch(place, rule, *ruleRole, "'", "'");
  const XmlElement* inside =
      target.Language.empty() && !target.Name.empty() ? place.Source->Context(target.Name) : nullptr;
  if (inside == nullptr) return false;
  auto role = place.Source->RoleOf(inside->Attribute("attribute"));
  if (!IsStretch(role)) {
    // A context in between that only looks which sort of string it is.
    if (!IsStretch(ruleRole) || inside->Attribute("fallthroughContext").empty()) return false;
    role = ruleRole;
  }
  if (rule.Flag("lookAhead")) return false;
  const RegexWords starts = WordsOfRule(rule);
  bool carried = false;
  for (const std::string& start : starts.Words) {
    const std::string bare = WithoutPrefix(start);
    const auto end = EndOf(*place.Source, *inside, bare, MostHops);
    if (!end || (bare != start && *end != bare)) continue;
    if (bare == start && bare.size() > 1 && bare.back() == '\'' &&
        std::isalnum(static_cast<unsigned char>(bare[0])) != 0)
      continue;
    carried = AddStretch(place, rule, *role, bare, *end);
  }
  if (!carried)
    LoseOnce(place, rule.Line, "Comments and strings whose marks are patterns are not coloured, this one among them.");
  return true;
}

bool Reader::AddStretch(const Place& place, const XmlElement& rule, Role role, const std::string& start,
                        const std::string& end) {
  const bool single = start.size() == 1;
  const bool hasQuote = start.find_first_of("\"'`") != std::string::npos;
  const bool somewhere =
      (!place.IsBase && (single || role == Role::Text)) || (single && role == Role::Text) ||
      (single && (rule.Attribute("column") == "0" || std::isalnum(static_cast<unsigned char>(start[0])) != 0));
  if (start == "\"\"" || start == "''") return true;  // an empty string, and what may follow it
  if (!start.empty() && !hasQuote && somewhere)
    LoseOnce(place, rule.Line,
             "The mark \"" + start + "\" begins a comment or a string in some places alone; it is left out.");
  else if (!start.empty())
    m_definition.Ranges.push_back({role, start, end, rule.Line});
  return true;
}

/// Of several stretches that begin with the same quotes keeps the likeliest: a string, and one that ends as it begins.
void Reader::SettleQuotes() {
  const auto worth = [](const Range& range) {
    return (range.Class == Role::Text ? 4 : 0) + (range.End == range.Start ? 2 : range.End.empty() ? 0 : 1);
  };
  std::vector<Range> settled;
  std::map<std::string, std::size_t> places;  // in `settled`, by start
  for (Range& range : m_definition.Ranges) {
    const auto [place, isNew] = places.try_emplace(range.Start, settled.size());
    const bool isQuote = range.Start.find_first_not_of("\"'`") == std::string::npos;
    if (isNew)
      settled.push_back(std::move(range));
    else if (isQuote && place->second >= m_ownComments && worth(range) > worth(settled[place->second]))
      settled[place->second] = std::move(range);
  }
  m_definition.Ranges = std::move(settled);
}

/// The mark that leads out of a context; "" for the end of the line, nothing when there is none that is a literal.
std::optional<std::string> Reader::EndOf(const KdeSource& source, const XmlElement& context, std::string_view start,
                                         int hops) const {
  if (hops == 0) return std::nullopt;
  std::optional<std::string> found;
  for (const XmlElement& rule : context.Children) {
    if (m_stepsLeft == 0) return std::nullopt;
    --m_stepsLeft;
    const KdeTarget target = KdeTarget::Of(rule.Attribute("context"));
    if (rule.Name == "IncludeRules" && target.Language.empty()) {
      const XmlElement* included = source.Context(target.Name);
      const auto end = included == nullptr ? std::nullopt : EndOf(source, *included, start, hops - 1);
      if (end && !end->empty() && (!found || *end == start)) found = end;
    }
    if (rule.Name == "LineContinue" || (!target.Pops && target.Name.empty())) continue;
    std::vector<std::string> words = WordsOfRule(rule).Words;
    // A string may lead through its second quote to what can follow it.
    if (words.empty() || ((!target.Pops || !target.Name.empty()) && (words[0] != start || rule.Flag("lookAhead"))))
      continue;
    if (rule.Flag("dynamic"))  // what the start had between its brackets
      for (const char* capture : {"%1", "%2"})
        if (const std::size_t place = words[0].find(capture); place != std::string::npos) words[0].erase(place, 2);
    if (!words[0].empty() && (!found || words[0] == start)) found = words[0];
  }
  if (found) return found;
  if (KdeTarget::Of(context.Attribute("lineEndContext")).Pops) return "";
  const KdeTarget further = KdeTarget::Of(context.Attribute("fallthroughContext"));
  const XmlElement* next = further.Language.empty() && !further.Name.empty() ? source.Context(further.Name) : nullptr;
  return next == nullptr ? std::nullopt : EndOf(source, *next, start, hops - 1);
}

Definition Reader::Run() {
  TakeHead();
  TakeDelimeters();
  if (const XmlElement* general = m_sources.front()->Root().Child("general")) TakeComments(*general);
  m_ownComments = m_definition.Ranges.size();
  WalkContexts();
  SettleQuotes();
  return std::move(m_definition);
}

}  // namespace

ReadDefinition ReadKde(std::string_view text, const std::string& file, const NeighbourFiles& neighbours) {
  XmlDocument document = ReadXml(text);
  if (!document.Error.empty()) return ReadDefinition::Failed(document.ErrorLine, std::move(document.Error));
  if (!KdeSource::IsDefinition(document.Root))
    return ReadDefinition::Failed(document.Root.Line,
                                  "The file is no syntax definition: there is no <language> with <highlighting>.");
  ReadDefinition result;
  result.Read = Reader(KdeSource(std::move(document.Root), file), neighbours).Run();
  return result;
}

}  // namespace import
