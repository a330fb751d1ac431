#pragma once
// What a syntax definition of another editor says, as far as a template can say it too: the one form that every reader
// gives and that TemplateMaker takes. All texts are UTF-8; line numbers are 1-based, 0 where there is no line to name.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace import {

/// What a word or a stretch is drawn as. The numbers are the places of the palette that the templates share.
enum class Role : std::int16_t {
  Comment = 1,
  Text = 2,  ///< a string
  Keyword = 3,
  Type = 4,
  Literal = 5,    ///< a number, true, null
  Directive = 6,  ///< preprocessor, annotation
  Function = 7,
  Plain = 8,
};

/// Something that the template cannot say, or that had to be guessed.
struct Loss {
  std::string File;
  std::size_t Line = 0;
  std::string What;  ///< a sentence
};

/// Words of one class.
struct WordList {
  Role Class = Role::Keyword;
  std::vector<std::string> Words;
  std::size_t Line = 0;
};

/// A stretch between two marks.
struct Range {
  Role Class = Role::Comment;
  std::string Start;
  std::string End;  ///< "" for the end of the line
  std::size_t Line = 0;
};

struct Definition {
  std::string File;    ///< where it comes from, for messages
  std::string Format;  ///< whose format it is
  std::string Name;
  std::vector<std::string> Extensions;  ///< without "."; whole names of files at the end
  bool CaseSensitive = true;
  std::string Delimeters;  ///< printable ASCII, one character each
  std::vector<WordList> Lists;
  std::vector<Range> Ranges;
  bool HasNumbers = false;               ///< numbers have a colour
  bool BackslashEscapes = true;          ///< "\" before a quote keeps it from ending its string
  std::string Version, Author, Licence;  ///< "" where the definition does not tell
  std::vector<Loss> Losses;

  /// Notes something that is not carried over.
  void Lose(std::size_t line, std::string what) { Losses.push_back({File, line, std::move(what)}); }
  /// Takes extensions from patterns for names of files ("*.c", "Makefile"): whole names stand behind the extensions,
  /// and what no list of extensions can say is noted.
  void TakePatterns(std::size_t line, std::span<const std::string> patterns);
};

/// What a reader gives: the definition, or why there is none.
struct ReadDefinition {
  Definition Read;
  std::size_t ErrorLine = 0;
  std::string Error;  ///< "" on success, else a sentence

  /// A failed reading.
  static ReadDefinition Failed(std::size_t line, std::string why) {
    ReadDefinition failed;
    failed.ErrorLine = line;
    failed.Error = std::move(why);
    return failed;
  }
};

/// Gives the decoded text of a file that lies beside the definition, or of one of the program that the definition is
/// for; nothing when there is none. `name` has no folder: a reader asks for nothing else.
using NeighbourFiles = std::function<std::optional<std::string>(std::string_view name)>;

/// Takes licence, author and version from lines of comment that name them, where the definition does not tell yet.
void TakeCredits(Definition& definition, std::span<const std::string> comments);

/// Whether `name` may be asked of NeighbourFiles: a plain file name, not hidden.
bool IsPlainFileName(std::string_view name);

/// The bounds that every reader keeps, whatever the file: how deep things nest, how many words a definition has, and
/// how many bytes its expanded texts.
inline constexpr std::size_t MostNesting = 100, MostWords = 200'000, MostBytes = 16'000'000;

/// The delimiters of a language whose words consist of letters, digits and `wordCharacters`: the rest of printable
/// ASCII and the tab.
std::string DelimetersBut(std::string_view wordCharacters);

}  // namespace import
