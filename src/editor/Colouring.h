#pragma once
// Colours a document: the whole of it, or the lines that were edited. The rules are ColourPass's; here stand the modes,
// the progress text with its Esc, and the way to the control.
//
// A run over much text yields to the event loop every 30 ms; the control is disabled meanwhile, and clearing
// DocumentState::Colouring stops the run, which keeps what it has found.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editor/ColourPass.h"
#include "editor/ColourTable.h"
#include "editor/DocumentState.h"
#include "editor/ViewKeeper.h"
#include "platform/EventLoop.h"
#include "platform/StatusPanels.h"
#include "platform/TextControl.h"
#include "settings/Settings.h"

namespace editor {

/// What the colouring works with; all of it outlives the colouring.
struct ColouringTools {
  platform::TextControl& Control;
  platform::StatusPanels& Status;
  platform::EventLoop& Loop;
  const settings::Settings& Settings;
};

class Colouring {
 public:
  Colouring(const ColouringTools& tools, DocumentState& state)
      : m_tools(tools), m_state(state), m_view(tools.Control) {}

  /// To be called when the document's template fields have changed.
  void TemplateChanged() { m_pass.reset(); }

  /// Whether a run is under way, be it one that was told to stop.
  bool Running() const { return m_running; }

  /// Colours the whole document, or takes its colours away when whole documents are not coloured. A template without
  /// colour words leaves everything as it is. Who has the control's text at hand gives it: 100 MB are not copied again.
  void ColourScan(std::string text = {});

  /// Colours the lines firstLine to lastLine (1-based; below 1 counts as 1), or the whole document where a run stays
  /// open that may reach into later lines.
  void ColourLines(std::size_t firstLine, std::size_t lastLine);

  /// Colours a piece of an RTF body that consists of whole lines, with the document's colour numbers. "" tells the
  /// caller to colour the whole document instead.
  std::string ColourText(std::string_view rtfPiece);

 private:
  const ColourPass& Pass();
  void ScanNow(std::string text);
  ColourPass::Progress ProgressOver(std::size_t length);
  bool Yield(std::size_t done, std::size_t length);
  void ShowProgress(std::string_view percent);
  void EndProgress();
  std::string RenderPiece(std::string_view text, const std::vector<PassRun>& runs);
  void KeepSynonyms(const std::vector<templates::Synonym>& captured);

  ColouringTools m_tools;
  DocumentState& m_state;
  ViewKeeper m_view;
  DocColours m_docColours;
  std::optional<ColourPass> m_pass;
  std::int64_t m_lastYield = 0;
  bool m_running = false;
};

}  // namespace editor
