#pragma once
// The whole-document pass over one text. Private to the colouring passes.

#include <optional>
#include <string_view>
#include <vector>

#include "editor/ColourPass.h"
#include "editor/PassTables.h"

namespace editor {

class WholePass {
 public:
  WholePass(const PassTables& tables, std::string_view text, const ColourPass::Progress& progress)
      : m_tables(tables), m_text(text), m_progress(progress) {}

  /// Appends the next run that is found from a place on, and goes to the place from which the search goes on. False
  /// when there is none before `until`, a byte offset: the place is then there, or behind a token that reaches further.
  bool Next(UnitPosition& place, std::size_t until, std::vector<PassRun>& runs);
  /// Whether nothing more can be found: at the end of the text, behind a run that stays open, or stopped.
  bool Over() const { return m_over; }

 private:
  struct Found {
    std::uint32_t Word = TokenTable::NoWord;
    std::size_t Start = 0, End = 0;
  };

  /// The first counting occurrence at or after a place; without one the place is where the search ended.
  std::optional<Found> FindNext(UnitPosition& from);
  /// The occurrence at the token that starts at `start`; sets `tokenEnd`.
  Found AtToken(std::size_t start, bool behindDelimeter, std::size_t& tokenEnd) const;
  void AtTrie(std::size_t start, bool behindDelimeter, Found& best) const;
  /// The occurrence of a word of a token's last character and the delimiter there.
  void AtEnd(std::size_t delimeter, Found& best) const;
  bool IsDelimeterAt(std::size_t offset, ByteKind kind) const;
  Found TokenFound(std::size_t start, std::size_t end, bool ascii) const;
  /// Goes on from a place behind a delimiter to where a word of the trie or a token beyond ASCII may begin, or to the
  /// word that it finds on the way.
  std::size_t Skim(std::size_t from, Found& found) const;
  /// The same in a block without bytes beyond ASCII, up to the token that reaches its end; the block's end for nothing.
  std::size_t SkimBlock(std::size_t from, const SkimFilter::Block& block, Found& found) const;
  /// The same byte by byte, up to `size`.
  std::size_t SkimBytes(std::size_t from, std::size_t size, Found& found) const;
  std::size_t TokenEnd(std::size_t start, bool& ascii) const;
  bool GoesOn(std::size_t done);

  const PassTables& m_tables;
  std::string_view m_text;
  const ColourPass::Progress& m_progress;
  std::size_t m_nextReport = 0, m_until = 0;
  bool m_over = false;
};

}  // namespace editor
