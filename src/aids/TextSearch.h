#pragma once
// Searching a text for a word, and replacing all its occurrences.
//
// Offsets are bytes of valid UTF-8, 0-based; characters are whole code points, and letter case is told apart or lowered
// one character for one. An empty word is never found.

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "rich_text/Encoding.h"

namespace aids {

class TextSearch {
 public:
  /// What is searched for and how.
  struct Word {
    std::string Text;
    bool CaseSense = false;
    bool WholeWord = false;
  };
  /// Whether a character of the searched text (lowered unless letter case counts) is a delimiter.
  using IsDelimeter = std::function<bool(std::string_view character)>;

  TextSearch(Word word, IsDelimeter isDelimeter);

  struct Match {
    std::size_t Start = 0, End = 0;
  };

  /// A piece of the whole text. The characters beside it decide about whole words; "" stands for the text's ends,
  /// where a space does.
  struct Piece {
    std::string_view Text;
    std::string_view Before, After;
  };

  /// The first match that starts in [from, until) of the piece.
  std::optional<Match> First(const Piece& piece, std::size_t from, std::size_t until) const;
  /// The last match that starts in [from, until) of the piece.
  std::optional<Match> Last(const Piece& piece, std::size_t from, std::size_t until) const;

  /// The bytes that a match can take at most.
  std::size_t LongestMatch() const { return m_characters * rich_text::LongestCharacter; }

  /// What replacing every match comes to: the stretch [Start, End) of the text gives way to Text.
  struct Replacement {
    std::size_t Count = 0;
    std::size_t Start = 0, End = 0;
    std::string Text;
  };
  /// Replaces from the start on; what was put in is not searched again, but it does stand beside what follows.
  Replacement ReplaceAll(std::string_view text, std::string_view replacement) const;

 private:
  char32_t Fold(char32_t value) const;
  std::size_t MatchEnd(std::string_view text, std::size_t offset) const;
  bool StandsAlone(std::string_view before, std::string_view after) const;
  bool Counts(const Piece& piece, const Match& match) const;
  std::size_t NextStart(std::string_view text, std::size_t from, std::size_t until) const;

  Word m_word;  ///< folded
  std::size_t m_characters = 0;
  IsDelimeter m_isDelimeter;
  std::array<bool, 256> m_mayStart{};  ///< by first byte
};

}  // namespace aids
