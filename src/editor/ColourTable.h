#pragma once
// Colour tables as RTF text: the template's own, and the document's with the colours that line colouring adds.
// Colour numbers in a document ("\cf" n) are 0-based places in its table; entry 0 is the control's own colour.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "rich_text/StyledText.h"

namespace editor {

/// The template's table: its entries "\red" R "\green" G "\blue" B ";" and the closing "}".
std::string BuildColourTable(const std::vector<rich_text::ColourValue>& colours);

/// The colour table of the document as it stands in the control, and what line colouring adds to it.
class DocColours {
 public:
  /// Reads the table of an RTF: the entries between "\colortbl\" and its "}".
  void ReadDocColours(std::string_view rtf);

  /// The document's number of the template colour `k` (1-based place in `colours`): that of an equal entry of the
  /// document, else of an equal added colour, else the colour is added. Fails with 9 when `k` is outside of `colours`
  /// or names no colour.
  std::int16_t MapColour(int k, const std::vector<rich_text::ColourValue>& colours);

  /// The header with the document's entries followed by the added ones.
  std::string MergeColourTable(std::string_view header) const;

  std::size_t DocColourCount() const { return m_document.size(); }

 private:
  std::vector<rich_text::ColourValue> m_document;
  std::vector<rich_text::ColourValue> m_added;  ///< kept as long as the document window lives
};

}  // namespace editor
