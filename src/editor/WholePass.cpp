#include "editor/WholePass.h"

#include <algorithm>
#include <bit>

#include "rich_text/Encoding.h"

namespace editor {
namespace {

// Often enough for a yield every few milliseconds, rare enough to cost nothing.
constexpr std::size_t ReportEveryBytes = 64 * 1024;

}  // namespace

bool WholePass::Next(UnitPosition& place, std::size_t until, std::vector<PassRun>& runs) {
  m_until = std::min(until, m_text.size());
  const std::optional<Found> found = FindNext(place);
  if (!found) {
    m_over = m_over || place.Offset >= m_text.size();
    return false;
  }
  const PassWord& word = m_tables.Words[found->Word];
  const RunBounds bounds = MeasureRun(m_tables.Fold, word, m_text, found->Start, found->End);
  runs.push_back(bounds.ToRun(m_text, word.Colour));
  m_over = !bounds.Found;
  // The search goes on behind the switch that ends the run, and as many units further as the end word has.
  place = word.End.Characters() == 0 ? bounds.End : Advance(m_text, bounds.End, word.End.Characters());
  place.BehindSpace = word.End.Characters() == 0;
  return true;
}

bool WholePass::GoesOn(std::size_t done) {
  m_nextReport = done + ReportEveryBytes;
  m_over = m_progress && !m_progress(done);
  return !m_over;
}

bool WholePass::IsDelimeterAt(std::size_t offset, ByteKind kind) const {
  if (kind == ByteKind::Wide) return m_tables.Delimeters.Has(rich_text::CodePointAt(m_text, offset).Value);
  return kind == ByteKind::TrieDelimeter || kind == ByteKind::Delimeter;
}

std::size_t WholePass::TokenEnd(std::size_t start, bool& ascii) const {
  std::size_t i = start;
  for (ascii = true;;) {
    while (i < m_text.size() && m_tables.TokenBytes[static_cast<unsigned char>(m_text[i])]) ++i;
    if (i == m_text.size() || m_tables.Kinds[static_cast<unsigned char>(m_text[i])] != ByteKind::Wide) return i;
    const rich_text::CodePoint point = rich_text::CodePointAt(m_text, i);
    if (m_tables.Delimeters.Has(point.Value)) return i;
    ascii = false;
    i += point.Bytes;
  }
}

WholePass::Found WholePass::AtToken(std::size_t start, bool behindDelimeter, std::size_t& tokenEnd) const {
  bool ascii = true;
  tokenEnd = TokenEnd(start, ascii);
  if (!behindDelimeter || tokenEnd == start) return {};
  return TokenFound(start, tokenEnd, ascii);
}

WholePass::Found WholePass::TokenFound(std::size_t start, std::size_t end, bool ascii) const {
  const std::uint32_t word = m_tables.Tokens.Find(m_tables.Fold, m_tables.Words, m_text, start, end, ascii);
  if (word == TokenTable::NoWord || !m_tables.Delimeters.HasAt(m_text, end)) return {};
  Found found{word, start, end};
  if (end == start + 1) AtEnd(end, found);
  return found;
}

void WholePass::AtEnd(std::size_t delimeter, Found& best) const {
  if (delimeter == m_text.size()) return;
  const auto* bytes = reinterpret_cast<const unsigned char*>(m_text.data()) + delimeter;
  if (m_tables.MayEnd(bytes[-1], bytes[0])) AtTrie(delimeter - 1, false, best);
}

void WholePass::AtTrie(std::size_t start, bool behindDelimeter, Found& best) const {
  m_tables.Anywhere.Walk(m_tables.Fold, m_text, start, [&](std::uint32_t word, std::size_t end) {
    if (word >= best.Word) return;
    if (m_tables.Words[word].NeedsDelimeters && !(behindDelimeter && m_tables.Delimeters.HasAt(m_text, end))) return;
    best = {word, start, end};
  });
}

// Most of a text begins no word; this is where the time of a pass goes. Nobody can guess where a token ends, so a
// branch there is dear: a block's bytes are sorted into sets of bits first.
std::size_t WholePass::Skim(std::size_t from, Found& found) const {
  const std::size_t size = std::min(m_until, m_nextReport);
  std::size_t i = from;
  while (i < size) {
    if (i + SkimFilter::BlockBytes + SkimFilter::ReadsBehind > m_text.size()) return SkimBytes(i, size, found);
    const SkimFilter::Block block = m_tables.Filter.Sort(m_text.data() + i);
    std::size_t end = i + SkimFilter::BlockBytes - block.Open();
    if (block.Wide || end == i) {
      const std::size_t until = std::min(size, i + SkimFilter::BlockBytes);
      end = SkimBytes(i, until, found);
      if (found.Word != TokenTable::NoWord || end < until) return end;
    } else if (const std::size_t start = SkimBlock(i, block, found); start < end) {
      return start;
    }
    i = end;
  }
  return i;
}

std::size_t WholePass::SkimBlock(std::size_t from, const SkimFilter::Block& block, Found& found) const {
  const auto* text = reinterpret_cast<const unsigned char*>(m_text.data() + from);
  const std::uint64_t whole = ~std::uint64_t{0} >> block.Open();
  for (std::uint64_t places = block.Starts() & whole; places != 0; places &= places - 1) {
    const auto place = static_cast<unsigned>(std::countr_zero(places));
    if (!m_tables.Filter.MayBegin(m_text.data() + from, block, place)) continue;
    if (block.IsToken(place)) {
      found = TokenFound(from + place, from + place + block.TokenLength(place), true);
      if (found.Word != TokenTable::NoWord) return from + place;
    } else if (m_tables.MayStart(text[place], text[place + 1])) {
      return from + place;
    }
  }
  return from + SkimFilter::BlockBytes;
}

std::size_t WholePass::SkimBytes(std::size_t from, std::size_t size, Found& found) const {
  const auto* text = reinterpret_cast<const unsigned char*>(m_text.data());
  std::size_t i = from;
  while (i < size) {
    const unsigned char byte = text[i];
    const bool startsNothing =
        m_tables.BlankBytes[byte] ||
        (!m_tables.TokenBytes[byte] && byte < 0x80 && i + 1 < m_text.size() && !m_tables.MayStart(byte, text[i + 1]));
    if (startsNothing) {
      ++i;
    } else if (m_tables.TokenBytes[byte]) {
      const std::size_t start = i;
      while (++i < m_text.size() && m_tables.TokenBytes[text[i]]) {
      }
      if (i < m_text.size() && text[i] >= 0x80) return start;  // perhaps it goes on
      if (!m_tables.Tokens.MayHave(byte, i - start)) continue;
      found = TokenFound(start, i, true);
      if (found.Word != TokenTable::NoWord) return start;
    } else {
      return i;
    }
  }
  return i;
}

std::optional<WholePass::Found> WholePass::FindNext(UnitPosition& from) {
  std::size_t i = from.Offset;
  const bool behindLineEnd = m_tables.Delimeters.Has(' ');
  const bool skims = behindLineEnd && !m_tables.AnywhereInTokens;
  bool behind = from.BehindSpace ? behindLineEnd : m_tables.Delimeters.HasBefore(m_text, i);
  while (i < m_until) {
    if (i >= m_nextReport && !GoesOn(i)) break;
    Found best;
    if (skims && behind) {
      i = Skim(i, best);
      if (best.Word != TokenTable::NoWord) return best;
      if (i >= m_until || i >= m_nextReport) continue;
    }
    const ByteKind kind = m_tables.Kinds[static_cast<unsigned char>(m_text[i])];
    if (kind == ByteKind::LineEnd || kind == ByteKind::Delimeter) {
      ++i;
      behind = kind == ByteKind::Delimeter || behindLineEnd;
      continue;
    }
    if (i > from.Offset) AtEnd(i, best);
    if (best.Word != TokenTable::NoWord) return best;
    const bool isDelimeter = IsDelimeterAt(i, kind);
    std::size_t tokenEnd = i;
    if (!isDelimeter && (behind || !m_tables.AnywhereInTokens)) best = AtToken(i, behind, tokenEnd);
    if (kind != ByteKind::Token && !m_tables.Anywhere.Empty()) AtTrie(i, behind, best);
    if (best.Word != TokenTable::NoWord) return best;
    if (isDelimeter || m_tables.AnywhereInTokens)
      i += rich_text::CharacterBytes(m_text[i]);
    else
      i = tokenEnd;
    behind = isDelimeter;
  }
  if (i == from.Offset) return std::nullopt;
  Found atEnd;  // a block may reach further than the search
  if (!m_over) AtEnd(i, atEnd);
  if (atEnd.Word != TokenTable::NoWord) return atEnd;
  from = {i};  // what stands before it is in the text
  return std::nullopt;
}

}  // namespace editor
