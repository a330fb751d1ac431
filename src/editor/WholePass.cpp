#include "editor/WholePass.h"

#include "rich_text/Encoding.h"

namespace editor {
namespace {

// Often enough for a yield every few milliseconds, rare enough to cost nothing.
constexpr std::size_t ReportEveryBytes = 64 * 1024;

}  // namespace

std::vector<PassRun> WholePass::Run() {
  std::vector<PassRun> runs;
  runs.reserve(m_text.size() / 40);
  UnitPosition from{0, 0, true};
  while (const std::optional<Found> found = FindNext(from)) {
    const PassWord& word = m_tables.Words[found->Word];
    const RunBounds bounds = MeasureRun(m_tables.Fold, word, m_text, found->Start, found->End);
    runs.push_back(bounds.ToRun(m_text, word.Colour));
    if (!bounds.Found) break;
    // The search goes on behind the switch that ends the run, and as many units further as the end word has.
    from = word.End.Characters() == 0 ? bounds.End : Advance(m_text, bounds.End, word.End.Characters());
    from.BehindSpace = word.End.Characters() == 0;
  }
  return runs;
}

bool WholePass::GoesOn(std::size_t done) {
  m_nextReport = done + ReportEveryBytes;
  return !m_progress || m_progress(done);
}

bool WholePass::IsDelimeterAt(std::size_t offset, ByteKind kind) const {
  if (kind == ByteKind::Wide) return m_tables.Delimeters.Has(rich_text::CodePointAt(m_text, offset).Value);
  return kind == ByteKind::TrieDelimeter || kind == ByteKind::Delimeter;
}

std::size_t WholePass::TokenEnd(std::size_t start, bool& ascii) const {
  std::size_t i = start;
  for (ascii = true; i < m_text.size();) {
    switch (m_tables.Kinds[static_cast<unsigned char>(m_text[i])]) {
      case ByteKind::Token:
      case ByteKind::TrieToken:
        ++i;
        break;
      case ByteKind::Wide: {
        const rich_text::CodePoint point = rich_text::CodePointAt(m_text, i);
        if (m_tables.Delimeters.Has(point.Value)) return i;
        ascii = false;
        i += point.Bytes;
        break;
      }
      default:
        return i;
    }
  }
  return i;
}

WholePass::Found WholePass::AtToken(std::size_t start, bool behindDelimeter, std::size_t& tokenEnd) const {
  bool ascii = true;
  tokenEnd = TokenEnd(start, ascii);
  if (!behindDelimeter || tokenEnd == start) return {};
  const std::uint32_t word = m_tables.Tokens.Find(m_tables.Fold, m_tables.Words, m_text, start, tokenEnd, ascii);
  if (word == TokenTable::NoWord || !m_tables.Delimeters.HasAt(m_text, tokenEnd)) return {};
  return {word, start, tokenEnd};
}

void WholePass::AtTrie(std::size_t start, bool behindDelimeter, Found& best) const {
  m_tables.Anywhere.Walk(m_tables.Fold, m_text, start, [&](std::uint32_t word, std::size_t end) {
    if (word >= best.Word) return;
    if (m_tables.Words[word].NeedsDelimeters && !(behindDelimeter && m_tables.Delimeters.HasAt(m_text, end))) return;
    best = {word, start, end};
  });
}

std::optional<WholePass::Found> WholePass::FindNext(UnitPosition from) {
  std::size_t i = from.Offset;
  bool behind = from.BehindSpace ? m_tables.Delimeters.Has(' ') : m_tables.Delimeters.HasBefore(m_text, i);
  while (i < m_text.size()) {
    if (i >= m_nextReport && !GoesOn(i)) return std::nullopt;
    const ByteKind kind = m_tables.Kinds[static_cast<unsigned char>(m_text[i])];
    if (kind == ByteKind::LineEnd) {
      i += rich_text::LineEndLength(m_text, i);
      behind = m_tables.Delimeters.Has(' ');
      continue;
    }
    if (kind == ByteKind::Delimeter) {
      ++i;
      behind = true;
      continue;
    }
    const bool isDelimeter = IsDelimeterAt(i, kind);
    std::size_t tokenEnd = i;
    Found best;
    if (!isDelimeter && (behind || !m_tables.AnywhereInTokens)) best = AtToken(i, behind, tokenEnd);
    if (kind != ByteKind::Token && !m_tables.Anywhere.Empty()) AtTrie(i, behind, best);
    if (best.Word != TokenTable::NoWord) return best;
    if (isDelimeter || m_tables.AnywhereInTokens)
      i += rich_text::CharacterBytes(static_cast<unsigned char>(m_text[i]));
    else
      i = tokenEnd;
    behind = isDelimeter;
  }
  return std::nullopt;
}

}  // namespace editor
