#include "templates/LineReader.h"

#include "rich_text/Encoding.h"
#include "rich_text/StyledText.h"

namespace templates {

std::optional<std::string_view> LineReader::RawLine() {
  if (AtEnd()) return std::nullopt;
  const std::size_t start = m_next;
  const std::size_t end = rich_text::FindLineEnd(m_text, start);
  m_next = end + rich_text::LineEndLength(m_text, end);
  m_lineNumber = m_nextNumber;
  m_nextNumber += LineEndsIn(end, m_next);
  return m_text.substr(start, end - start);
}

std::optional<std::string_view> LineReader::NextLine() {
  while (const auto line = RawLine())
    if (!line->empty() && line->front() != ';') return line;
  return std::nullopt;
}

LineReader::Stretch LineReader::TakeCharacters(std::size_t count) {
  Stretch stretch;
  std::size_t end = m_next;
  for (; stretch.Characters < count && end < m_text.size(); ++stretch.Characters)
    end += rich_text::CharacterBytes(m_text[end]);
  stretch.Text = m_text.substr(m_next, end - m_next);
  m_nextNumber += LineEndsIn(m_next, end);
  m_next = end;
  return stretch;
}

/// The line ends of which some part lies in [from, to); one that is cut between CR and LF counts with its CR.
std::size_t LineReader::LineEndsIn(std::size_t from, std::size_t to) const {
  std::size_t count = 0;
  for (std::size_t i = from; i < to; ++i) {
    const bool secondHalf = m_text[i] == '\n' && i > 0 && m_text[i - 1] == '\r';
    if ((m_text[i] == '\r' || m_text[i] == '\n') && !secondHalf) ++count;
  }
  return count;
}

}  // namespace templates
