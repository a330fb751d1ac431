#pragma once
// The lines of a template's or help definition file's decoded text, one after the other.
//
// A line ends at CR LF, a lone CR or a lone LF; the last one may lack its end. Lines are views into the text, which
// must outlive the reader and them. Line numbers are 1-based. A reader is a small value: a copy remembers a place to go
// back to.

#include <cstddef>
#include <optional>
#include <string_view>

namespace templates {

class LineReader {
 public:
  explicit LineReader(std::string_view text) : m_text(text) {}

  bool AtEnd() const { return m_next == m_text.size(); }

  /// The next line, without its end; nothing at the end of the text.
  std::optional<std::string_view> RawLine();

  /// The next line that is neither empty nor begins with ";"; nothing when there is none.
  std::optional<std::string_view> NextLine();

  /// A stretch of the text. Characters are code points; CR LF is two.
  struct Stretch {
    std::string_view Text;
    std::size_t Characters = 0;
  };

  /// The next `count` characters, fewer at the end of the text. What follows them is read next, even inside a line.
  Stretch TakeCharacters(std::size_t count);

  /// The number of the line last given; 0 before the first.
  std::size_t LineNumber() const { return m_lineNumber; }

 private:
  std::size_t LineEndsIn(std::size_t from, std::size_t to) const;

  std::string_view m_text;
  std::size_t m_next = 0;        ///< byte offset of what is read next
  std::size_t m_lineNumber = 0;  ///< of the line last given
  std::size_t m_nextNumber = 1;  ///< of the line that m_next stands in
};

}  // namespace templates
