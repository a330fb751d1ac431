#pragma once
// The rules of the completion list that need no window: which row a typed prefix selects, where the page keys go, how
// large the list is, when it must close and which text a chosen word replaces.
//
// Rows are 1-based and 0 means none. Offsets are bytes, 0-based; stretches are [start, end). Sizes are twips. Nothing
// here fails.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

/// The words of a list in row order, folded once so that a key need not fold them again.
class ListWords {
 public:
  ListWords() = default;
  ListWords(const std::vector<std::string>& words, bool caseSensitive);

  /// The first row whose word begins with the prefix, folded as the template says; 0 when none does or the prefix is
  /// empty.
  int FindListMatch(std::string_view prefix) const;
  /// The length of the longest word, in characters.
  std::size_t LongestWord() const { return m_longest; }

 private:
  std::vector<std::string> m_folded;
  std::size_t m_longest = 0;
  bool m_caseSensitive = false;
};

/// Where the list was opened and the caret stands now.
struct ListPlace {
  std::size_t ContextListTextStart = 0;
  std::size_t Caret = 0;
};

/// False when the caret is before the place where the list was opened, or a delimiter stands between the two.
bool ListStillValid(const platform::TextControl& control, const templates::TemplateFields& fields,
                    const ListPlace& place);

/// The text from `start` on up to the next delimiter, or more of it when a delimiter stands at `start` itself; cut
/// behind `longest` + 1 characters, which no word of `longest` characters begins with anyway.
std::string ListPrefix(const platform::TextControl& control, const templates::TemplateFields& fields, std::size_t start,
                       std::size_t longest);

/// The text that a chosen word replaces: from where the list was opened to the end of the word in which the caret
/// stands. An end before the start means that nothing may be replaced.
struct ReplacedRange {
  std::size_t Start = 0, End = 0;
};
/// The range for a list that was opened at one place and is left at another.
ReplacedRange RangeToReplace(const platform::TextControl& control, const templates::TemplateFields& fields,
                             const ListPlace& place);

// Page keys: the row to select next, 0 in a list without rows. Heights in pixels.
int PageDownRow(int selected, int rows, float listHeight, float rowHeight);
int PageUpRow(int selected, int rows, float listHeight, float rowHeight);

/// What the size of a list depends on: pixels, but for the width of its widest text.
struct ListMetrics {
  int tmHeight = 0;        ///< height of a character of the list's font
  int DialogFrame = 0;     ///< width of the window's frame
  int ScrollBarWidth = 0;  ///< of a vertical scroll bar
  float maxW = 0;          ///< twips
};

struct ListSize {
  float Width = 0, Height = 0;  ///< of the window, twips
  int RowHeight = 0;            ///< pixels
  bool Scrolls = false;         ///< higher than a list may be
};

/// The size of a list of `number` rows.
ListSize SizeOfList(int number, const ListMetrics& metrics);

}  // namespace aids
