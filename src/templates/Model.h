#pragma once
// What a template says: colours and the words drawn in them, delimiters, action words, synonyms, word help, how a
// script is run and what a new one starts with. All texts are UTF-8. The reader creates the entries, the collections
// own them.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "rich_text/StyledText.h"
#include "templates/KeyedCollection.h"

namespace templates {

/// What happens when an action word is followed by one delimiter.
class WrdAct : public std::enable_shared_from_this<WrdAct> {
 public:
  static constexpr std::int16_t Tooltip = 1, List = 2, CaptureSynonym = 3;

  std::string Delimeter;    ///< the trigger, normally one character
  std::int16_t Action = 0;  ///< Tooltip, List or CaptureSynonym
  std::string tipText;      ///< shown by Tooltip

  std::int16_t NumberOfWords() const { return m_numberOfWords; }
  /// Sets the count. Above 0 the two lists are made anew, empty, with the places 1 to `count`; at 0 or below they stay.
  void SetNumberOfWords(std::int16_t count);

  // Entry text and icon number (1 to 7) at a 1-based place; they fail with 9 outside the places last made.
  const std::string& WordList(int place) const;
  void SetWordList(int place, std::string text);
  std::int32_t IconList(int place) const;
  void SetIconList(int place, std::int32_t icon);

  /// Copies of the first NumberOfWords() entries; empty at 0 or below.
  void FillWordList(std::vector<std::string>& list) const;
  void FillIconList(std::vector<std::int32_t>& list) const;

  /// Adds this action under its Delimeter; fails with 5 when the delimiter has one already.
  void AddTo(KeyedCollection<WrdAct>& target);
  bool Ping() const { return true; }

 private:
  std::size_t Index(int place) const;

  std::int16_t m_numberOfWords = 0;
  std::vector<std::string> m_words;
  std::vector<std::int32_t> m_icons;
};

/// An action word.
class Word : public std::enable_shared_from_this<Word> {
 public:
  std::string Name;
  KeyedCollection<WrdAct> Actions;  ///< under their delimiters

  /// Adds this word under its name unless the name is taken: the first definition of a word wins.
  void AddTo(KeyedCollection<Word>& target);
  bool Ping() const { return true; }
};

/// A word that starts a coloured run.
class colWord : public std::enable_shared_from_this<colWord> {
 public:
  static constexpr std::int16_t EndOfWord = 0, EndOfLine = 1, UntilWord = 2;

  std::string StartWord;
  std::int16_t EndPoint = EndOfWord;
  std::int16_t Colour = 0;   ///< 1-based place in Colours; outside of it: no colour
  bool IncludeWord = false;  ///< the run includes the start word (and the end word)
  std::string EndWord;       ///< for UntilWord

  /// Adds this entry under its StartWord unless the word is taken: the first definition of a word wins.
  void AddTo(KeyedCollection<colWord>& target);
  bool Ping() const { return true; }
};

/// A word that stands for an action word.
struct Synonym {
  std::string Word;     ///< as typed
  std::string Synonym;  ///< the action word that it stands for
};

/// One word-help entry.
struct HelpWord {
  std::string Word;
  std::string CommandLine;  ///< shows the help
  std::string Name;         ///< its title, for choosing between several entries of one word
};

/// What a colour entry with a bad value leaves in its place, so that the numbers after it stay: it draws no colour.
inline constexpr rich_text::ColourValue NoColour = 0xFFFFFFFF;

/// Whether an entry of a palette is a colour to draw in: the top byte is zero.
constexpr bool IsColour(rich_text::ColourValue value) {
  return value <= 0xFFFFFF;
}

/// A reference to a template file.
struct Template {
  std::string Name;       ///< the file's display name
  std::string Extension;  ///< as in the file; may list several, separated by ";"
  std::string FileName;   ///< full path
};

/// The template fields of a document. A load empties the collections, ExecuteCommand and UseFont and leaves the other
/// fields as they were where the file does not set them.
struct TemplateFields {
  std::string TemplateFile;  ///< path; "*none*" when the choice was cancelled; "" before the first load
  bool CaseSensitive = false;
  std::int16_t UseFont = 0;                     ///< 0 the user's default, 1 proportional, 2 fixed width, 3 MS-DOS
  std::vector<rich_text::ColourValue> Colours;  ///< colour number n is Colours[n - 1]
  std::vector<std::string> Delimeters;          ///< one character each, in file order, repeats kept
  KeyedCollection<colWord> ColWords;            ///< under StartWord
  KeyedCollection<Word> Words;                  ///< under Name
  KeyedCollection<Synonym> Synonyms;            ///< under Word
  KeyedCollection<HelpWord> HelpWords;          ///< no keys
  std::string ExecuteCommand;                   ///< "%s" stands for the script's file name
  std::string DefaultExtension;                 ///< the first of the file's extensions, without "."
  std::string TName, TVer, TAuthor, TDate, TComments;
  bool TemplateChosen = false;  ///< chosen by the user for this file
  std::string ColourTable;      ///< the rich-text colour table made of Colours

  /// Whether the first character of `text` is one of Delimeters, letter case counting; false for "".
  bool IsDelimeter(std::string_view text) const;
};

/// The template file that means "no template".
inline constexpr const char* NoTemplate = "*none*";

/// The extensions that `list` names, separated by ";", in order. A list without ";" is one extension as it stands, ""
/// too; of several, blanks around them and empty ones fall away.
std::vector<std::string> ExtensionsOf(std::string_view list);

/// Whether an extension (without ".", any letter case) is one of those that `list` names, separated by ";".
bool NamesExtension(std::string_view list, std::string_view extension);

/// The file of the first template that names the extension (without ".", any letter case); "" for none.
std::string FileOfExtension(const std::vector<Template>& list, std::string_view extension);

}  // namespace templates
