#include "import/SciteReader.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "import/Properties.h"
#include "import/SciteLexers.h"
#include "import/WordClasses.h"
#include "platform/FileParsing.h"
#include "rich_text/Encoding.h"
#include "templates/Values.h"

namespace import {
namespace {

/// What every installation has, for a file that lies alone.
constexpr std::string_view CommonProperties =
    "chars.alpha=abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ\nchars.numeric=0123456789\n";
constexpr std::string_view ListPrefix = "$(file.patterns.";

std::vector<std::string> Split(std::string_view text, std::string_view separators) {
  std::vector<std::string> parts;
  while (true) {
    const std::size_t start = text.find_first_not_of(separators);
    if (start == std::string_view::npos) return parts;
    const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
    parts.emplace_back(text.substr(start, end - start));
    text.remove_prefix(end);
  }
}

struct Language {
  std::string Name;      ///< of its list of patterns, or its extension
  std::string Patterns;  ///< as the keys write them
  std::string Lexer;
  std::size_t Line = 0;
};

class Reader {
 public:
  Reader(Properties properties, const std::string& file) : m_properties(std::move(properties)) {
    m_definition.File = file;
    m_definition.Format = "SciTE";
    m_definition.Losses = std::move(m_properties.Losses);
  }

  ReadDefinition Run(const std::string& language);

 private:
  std::vector<Language> Languages() const;
  bool Choose(const std::string& wanted);
  std::string NameOfLanguage() const;
  void TakeDelimeters();
  void TakeSets();
  void TakeSet(std::size_t number, const Property& property);
  void TakeLexer();
  void TakeComments();
  void TakeRanges(Role role, std::string_view marks);
  const Property* Setting(std::string_view kind) const;
  void Lose(std::size_t line, std::string what) { m_definition.Lose(line, std::move(what)); }

  Properties m_properties;
  Language m_language;
  std::vector<std::string> m_patterns;  ///< "*.py"
  const SciteLexer* m_lexer = nullptr;
  Definition m_definition;
};

std::vector<Language> Reader::Languages() const {
  std::vector<Language> languages;
  for (const Property& property : m_properties.All()) {
    std::string_view patterns = property.Key;
    if (property.File != m_definition.File || !patterns.starts_with("lexer.")) continue;
    patterns.remove_prefix(6);
    Language language{"", std::string(patterns), std::string(templates::Trimmed(m_properties.Expand(property.Value))),
                      property.Line};
    if (patterns.starts_with(ListPrefix) && patterns.ends_with(')'))
      language.Name = patterns.substr(ListPrefix.size(), patterns.size() - ListPrefix.size() - 1);
    else if (patterns.starts_with("*."))
      language.Name = patterns.substr(2);
    else
      continue;
    languages.push_back(std::move(language));
  }
  return languages;
}

/// Chooses the language; false when the file has none of that name.
bool Reader::Choose(const std::string& wanted) {
  const std::vector<Language> languages = Languages();
  const std::string title = rich_text::LowerCase(platform::FileTitle(m_definition.File));
  auto chosen = languages.end();
  bool found = false;
  for (auto one = languages.begin(); one != languages.end(); ++one) {
    const std::vector<std::string> patterns = Split(m_properties.Expand(one->Patterns), "; ");
    const bool has = std::find(patterns.begin(), patterns.end(), "*." + wanted) != patterns.end();
    const bool isNamed = one->Name == wanted || (wanted.empty() && rich_text::LowerCase(one->Name) == title);
    // A list of patterns has the settings where an extension alone is called the same.
    const bool isList = one->Patterns.starts_with(ListPrefix);
    if ((isNamed && (isList || !found)) || (chosen == languages.end() && (wanted.empty() || has))) chosen = one;
    found = found || isNamed;
    if (isNamed && isList) break;
  }
  if (chosen == languages.end()) return false;
  m_language = *chosen;
  m_patterns = Split(m_properties.Expand(chosen->Patterns), "; ");
  std::string others;
  for (const Language& other : languages)
    if (&other != &*chosen) others += (others.empty() ? "" : ", ") + other.Name;
  if (!others.empty() && wanted.empty()) Lose(0, "The file has other languages, for --language: " + others + '.');
  return true;
}

/// The setting of a kind that is the language's own; else one that is for some of its files, among others.
const Property* Reader::Setting(std::string_view kind) const {
  const std::string prefix = std::string(kind) + '.';
  if (const Property* own = m_properties.Find(prefix + m_language.Patterns)) return own;
  const Property* found = nullptr;
  for (const Property& property : m_properties.All()) {
    if (m_patterns.empty() || !property.Key.starts_with(prefix) || property.Key.find('*') == property.Key.find('$'))
      continue;
    const std::vector<std::string> patterns = Split(m_properties.Expand(property.Key.substr(prefix.size())), ";");
    if (std::find(patterns.begin(), patterns.end(), m_patterns.front()) != patterns.end()) found = &property;
  }
  return found;
}

/// "Python (py pyw)|$(file.patterns.py)|" is how the dialog for opening files calls the language.
std::string Reader::NameOfLanguage() const {
  for (const Property& property : m_properties.All()) {
    if (!property.Key.starts_with("filter.") || property.File != m_definition.File) continue;
    if (property.Value.find(m_language.Patterns) == std::string::npos) continue;
    const std::string_view name =
        templates::Trimmed(std::string_view(property.Value).substr(0, property.Value.find_first_of("(|")));
    if (!name.empty() && name.find("$(") == std::string_view::npos) return std::string(name);
  }
  return m_language.Name;
}

void Reader::TakeDelimeters() {
  std::string others = "_";
  if (const Property* characters = Setting("word.characters"); characters != nullptr)
    others = m_properties.Expand(characters->Value);
  if (m_lexer != nullptr && m_lexer->Form == WordForm::Command) std::erase(others, '\\');
  m_definition.Delimeters = DelimetersBut(others);
}

void Reader::TakeSet(std::size_t number, const Property& property) {
  const std::string_view sets = m_lexer == nullptr || m_lexer->Sets.size() < number ? CustomarySets : m_lexer->Sets;
  const int role = sets[number - 1] - '0';
  std::vector<std::string> words = Split(m_properties.Expand(property.Value), " \t");
  if (words.empty()) return;
  if (role == 0)
    return Lose(property.Line, "These words have a colour inside comments, or scripts, alone: " + words[0] + ", …");
  const WordForm form = m_lexer == nullptr ? WordForm::Plain : m_lexer->Form;
  WordList list;
  list.Line = property.Line;
  list.Class = m_lexer == nullptr && number > 1 ? ClassOfList(words, static_cast<Role>(role)) : static_cast<Role>(role);
  for (std::string& word : words) {
    // "a~ppend" may be cut short at the sign, "^moz-" begins words.
    std::erase(word, '~');
    if (word.size() > 1 && word.front() == '^') word.erase(0, 1);
    if (form == WordForm::Tag) list.Words.push_back("</" + word);
    const char* mark = form == WordForm::Tag ? "<" : form == WordForm::Command ? "\\" : "";
    list.Words.push_back(mark + std::move(word));
  }
  m_definition.Lists.push_back(std::move(list));
}

void Reader::TakeSets() {
  for (std::size_t number = 1; number <= 9; ++number)
    if (const Property* words = Setting(number == 1 ? "keywords" : "keywords" + std::to_string(number)))
      TakeSet(number, *words);
  // Words that a lexer is given to tell apart among its identifiers: names of a library.
  for (const Property& property : m_properties.All())
    if (property.Key.starts_with("substylewords.") && property.Key.ends_with('.' + m_language.Patterns))
      m_definition.Lists.push_back({Role::Function, Split(m_properties.Expand(property.Value), " \t"), property.Line});
}

void Reader::TakeRanges(Role role, std::string_view marks) {
  const std::vector<std::string> pairs = Split(marks, " ");
  for (std::size_t i = 0; i + 1 < pairs.size(); i += 2)
    m_definition.Ranges.push_back({role, pairs[i], pairs[i + 1], m_language.Line});
}

/// What a file tells of comments, for commenting lines out.
void Reader::TakeComments() {
  const auto value = [&](std::string_view kind) {
    const Property* property = m_properties.Find(std::string(kind) + m_language.Lexer);
    return property == nullptr ? std::string() : m_properties.Expand(property->Value);
  };
  std::string line = value("comment.block.");
  line.erase(std::min(line.find_last_not_of("~ ") + 1, line.size()));
  if (!line.empty()) m_definition.Ranges.push_back({Role::Comment, line, "", m_language.Line});
  const std::string start = value("comment.stream.start."), end = value("comment.stream.end.");
  if (!start.empty() && !end.empty()) m_definition.Ranges.push_back({Role::Comment, start, end, m_language.Line});
}

void Reader::TakeLexer() {
  m_definition.HasNumbers = true;
  if (m_lexer == nullptr) {
    TakeComments();
    TakeRanges(Role::Text, "\" \"");
    return Lose(m_language.Line,
                "The lexer \"" + m_language.Lexer +
                    "\" is not known: strings between double quotes and exact letter case are a guess.");
  }
  for (const std::string& mark : Split(m_lexer->LineComments, " "))
    m_definition.Ranges.push_back({Role::Comment, mark, "", m_language.Line});
  TakeRanges(Role::Comment, m_lexer->BlockComments);
  TakeRanges(Role::Text, m_lexer->Strings);
  m_definition.CaseSensitive = m_lexer->CaseSensitive;
  m_definition.BackslashEscapes = m_lexer->Escapes;
  if (m_lexer->HasPreprocessor) {
    const auto words = PreprocessorWords();
    m_definition.Lists.push_back({Role::Directive, {words.begin(), words.end()}, m_language.Line});
  }
  if (m_lexer->Form == WordForm::Tag)
    Lose(m_language.Line, "Elements are coloured as such, names of attributes are not.");
}

ReadDefinition Reader::Run(const std::string& language) {
  if (!Choose(language))
    return ReadDefinition::Failed(0, language.empty() ? "The file names no lexer for any files: it defines no language."
                                                      : "The file has no language \"" + language + "\".");
  m_lexer = FindSciteLexer(rich_text::LowerCase(m_language.Lexer));
  m_definition.Name = NameOfLanguage();
  m_definition.TakePatterns(m_language.Line, m_patterns);
  TakeDelimeters();
  TakeLexer();
  TakeSets();
  ReadDefinition result;
  result.Read = std::move(m_definition);
  return result;
}

}  // namespace

ReadDefinition ReadScite(std::string_view text, const std::string& file, const std::string& language,
                         const NeighbourFiles& neighbours) {
  Properties properties;
  properties.Read(CommonProperties, "", neighbours);
  if (const auto common = neighbours("SciTEGlobal.properties"))
    properties.Read(*common, "SciTEGlobal.properties", neighbours);
  properties.Losses.clear();
  properties.Read(text, file, neighbours);
  return Reader(std::move(properties), file).Run(language);
}

}  // namespace import
