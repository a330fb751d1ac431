#pragma once
// The line pass over a piece of whole lines. Private to the colouring passes.
//
// Each round looks at the first occurrence of every word behind the place reached, wherever it stands; a word whose
// first occurrence does not count is out of this round. The earliest word that counts is coloured and a new round
// begins behind it. Rounds look at disjoint stretches of the text, so that the pass is linear in it.

#include <optional>
#include <string_view>
#include <vector>

#include "editor/ColourPass.h"
#include "editor/PassTables.h"

namespace editor {

class LinePass {
 public:
  LinePass(const PassTables& tables, const Trie& words, std::string_view text, bool closeAtLineEnd)
      : m_tables(tables), m_words(words), m_text(text), m_closeAtLineEnd(closeAtLineEnd) {}

  ColourPass::LineResult Run(std::vector<templates::Synonym>* captured, const ColourPass::Progress& progress);

 private:
  struct Found {
    std::size_t Word = 0;
    std::size_t Start = Nowhere, End = Nowhere;
  };

  Found NextColour();
  Found NextAction();
  bool Counts(const PassWord& word, std::size_t start, std::size_t end, UnitPosition from) const;
  bool IsDelimited(std::size_t start, std::size_t end, UnitPosition from) const;
  /// Colours the run of a word; false when it finds no end and may not be closed.
  bool Colour(const Found& found, std::vector<PassRun>& runs);
  void Capture(const Found& found, std::vector<templates::Synonym>& captured);
  std::optional<templates::Synonym> SynonymAround(const Found& found, std::size_t& tokenEnd) const;

  const PassTables& m_tables;
  const Trie& m_words;  ///< every colour word
  std::string_view m_text;
  bool m_closeAtLineEnd;
  UnitPosition m_colourFrom{0, 0, true};
  UnitPosition m_actionFrom{0, 0, true};
  std::vector<std::uint32_t> m_round;  ///< by word: the last round in which its first occurrence did not count
  std::uint32_t m_roundNumber = 0;

  /// An action word's first occurrence at or behind From.
  struct KnownMatch {
    std::size_t From = Nowhere;
    Needle::Match Match;
  };
  std::vector<KnownMatch> m_actions;
  std::vector<bool> m_noEnd;  ///< by word: its end word does not occur any more
};

}  // namespace editor
