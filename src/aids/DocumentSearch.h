#pragma once
// Searching in one document, and what it remembers of its last search.
//
// Directions are codes: 0 from the top, 1 down, 2 up. Offsets are bytes, 0-based. The text is read in pieces from the
// caret on, so that a near match costs the same in a long text. Control and template outlive this.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "aids/TextSearch.h"
#include "platform/Prompts.h"
#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

/// Direction codes.
namespace Direction {
inline constexpr std::int32_t FromTop = 0, Down = 1, Up = 2;
}

class DocumentSearch {
 public:
  static constexpr std::int32_t NotFound = -1;

  /// `pieceBytes`: how much of the text is looked at in one go, at least a character.
  DocumentSearch(platform::TextControl& control, const templates::TemplateFields& fields,
                 std::size_t pieceBytes = 256 * 1024)
      : m_control(control), m_fields(fields), m_pieceBytes(std::max(pieceBytes, rich_text::LongestCharacter)) {}

  // The last search.
  std::string PreviousFindWord;
  bool PreviousCaseSense = false;
  std::int32_t PreviousDirection = Direction::FromTop;
  bool PreviousWholeWord = false;
  bool SearchWrapped = false;  ///< the repeated search has gone on from the other end once

  /// Remembers the search and selects the next occurrence: 0, or NotFound when there is none.
  std::int32_t Find(const std::string& word, std::int32_t direction, bool caseSense, bool wholeWord);

  /// Repeats the remembered search, asks at the end of the document whether to go on from the other one, and tells when
  /// nothing is found. Nothing happens when nothing has been searched for.
  void FindNext(platform::Prompts& prompts);

  /// Tells or asks what `word`'s not being found in a direction asks for; true when the user wants to go on from the
  /// other end, where the caret is then. `wrapped` is whether the search has done so before.
  bool OffersToWrap(platform::Prompts& prompts, const std::string& word, std::int32_t direction, bool& wrapped);

  /// Replaces every occurrence in the whole text, as one edit, and returns their number. `changing` is called around
  /// the edit when there is one.
  std::size_t ReplaceAll(const std::string& word, const std::string& replacement, bool caseSense, bool wholeWord,
                         const std::function<void(const std::function<void()>& edit)>& changing);

 private:
  TextSearch SearchFor(const std::string& word, bool caseSense, bool wholeWord) const;
  std::optional<TextSearch::Match> FindDown(const TextSearch& search, std::size_t from) const;
  std::optional<TextSearch::Match> FindUp(const TextSearch& search, std::size_t caret) const;
  std::size_t CharacterStart(std::size_t offset) const;
  std::size_t AfterCharacter(std::size_t offset) const;

  platform::TextControl& m_control;
  const templates::TemplateFields& m_fields;

  std::size_t m_pieceBytes;
  bool m_countsFirst = false;  ///< the search has just wrapped to the beginning: an occurrence at offset 0 counts
};

}  // namespace aids
