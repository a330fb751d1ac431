#pragma once
// A coloured text written out: as the RTF that colouring a whole document hands to its control, as HTML, and as text
// for a terminal. Texts of any size go out in pieces of about a megabyte.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/ColourPass.h"
#include "templates/Model.h"

namespace editor {

/// Takes a piece of output; false when there is nobody to take any more, which ends the writing.
using OutputSink = std::function<bool(std::string_view piece)>;

/// A text and what the whole-document pass found in it. Both must outlive the call.
struct ColouredText {
  std::string_view Text;
  const std::vector<PassRun>& Runs;
  const std::vector<rich_text::ColourValue>& Colours;
};

/// Header, the template's table, and the body with its switches.
void WriteColouredRtf(const ColouredText& coloured, std::string_view fontName, const OutputSink& sink);

/// A whole page with the title, or with `fragment` the <pre> alone. Colours are inline CSS.
void WriteColouredHtml(const ColouredText& coloured, std::string_view title, bool fragment, const OutputSink& sink);

/// Text with 24-bit colour sequences; a run that goes over a line end is switched off and on around it. Control
/// characters of the text other than tab and line ends are shown as pictures, so that a file cannot steer the terminal.
void WriteColouredAnsi(const ColouredText& coloured, const OutputSink& sink);

}  // namespace editor
