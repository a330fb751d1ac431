#include "editor/Colouring.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "editor/rtfscan/Scanners.h"
#include "rich_text/Rtf.h"

namespace editor {
namespace {

constexpr std::int64_t YieldEveryMilliseconds = 30;
constexpr std::size_t LongText = 16'000'000;  // bytes; takes longer than that for certain
constexpr std::size_t LongPiece = 300;        // bytes of RTF; longer pieces show their progress
constexpr std::string_view FirstPercent = "0";

/// The whole percents done, without digits while they round to 0.
std::string PercentText(std::size_t done, std::size_t length) {
  const auto percent =
      std::lround(100.0 * static_cast<double>(done) / static_cast<double>(std::max<std::size_t>(length, 1)));
  return percent == 0 ? "" : std::to_string(percent);
}

}  // namespace

const ColourPass& Colouring::Pass() {
  if (!m_pass) m_pass.emplace(m_state.Template);
  return *m_pass;
}

void Colouring::ShowProgress(std::string_view percent) {
  m_tools.Status.SetSimpleText("Syntax Highlighting... [" + std::string(percent) + "% done]  (Esc to cancel)");
}

void Colouring::EndProgress() {
  m_tools.Status.SetStyle(platform::StatusStyle::Normal);
  m_tools.Status.SetSimpleText("");
  m_state.Colouring = false;
}

bool Colouring::Yield(std::size_t done, std::size_t length) {
  const std::int64_t now = m_tools.Loop.Milliseconds();
  if (now - m_lastYield >= YieldEveryMilliseconds) {
    ShowProgress(PercentText(done, length));
    m_tools.Loop.DoEvents();
    m_lastYield = m_tools.Loop.Milliseconds();
  }
  return m_state.Colouring;
}

ColourPass::Progress Colouring::ProgressOver(std::size_t length) {
  m_lastYield = m_tools.Loop.Milliseconds();
  if (length >= LongText) m_lastYield -= YieldEveryMilliseconds;  // it is shown before its colours are looked for
  return [this, length](std::size_t done) { return Yield(done, length); };
}

void Colouring::ColourScan(std::string text) {
  // A run that yields can be asked for another one; the one under way is stopped by Esc alone.
  if (m_state.Template.ColWords.Empty() || m_running) return;
  m_running = true;
  m_view.SaveView();
  m_tools.Control.SetRedraw(true);  // a long text is read meanwhile; its colours come all at once
  m_tools.Status.SetStyle(platform::StatusStyle::Simple);
  ShowProgress(FirstPercent);
  m_state.Colouring = true;
  ScanNow(std::move(text));
  m_view.RestoreView();
  EndProgress();
  m_running = false;
  m_tools.Control.SetFocus();
}

void Colouring::ScanNow(std::string text) {
  std::vector<rich_text::ColourRun> runs;
  if (m_tools.Settings.UseColours) {
    if (text.empty()) text = m_tools.Control.Text();
    runs = ColouredRuns(Pass().Whole(text, ProgressOver(text.size())), m_state.Template.Colours);
  }
  text = {};
  const ProgramChange change(m_state);
  m_tools.Control.SetColours(m_state.Template.Colours, std::move(runs));
}

void Colouring::ColourLines(std::size_t firstLine, std::size_t lastLine) {
  if (m_state.Template.ColWords.Empty() || m_running) return;
  const std::size_t first = std::max<std::size_t>(firstLine, 1);
  const std::size_t last = std::min(std::max(lastLine, first), m_tools.Control.LineCount());
  if (first > last) return;
  const std::string rtf = m_tools.Control.LinesRTF(first, last);
  const std::size_t body = rich_text::RtfBodyStart(rtf);
  if (body == rtf.size()) return;
  const std::string_view header(rtf.data(), body);
  const std::string_view piece(rtf.data() + body, rtf.size() - body - 1);  // without the closing brace
  m_docColours.ReadDocColours(rtf);
  const std::string coloured = ColourText(piece);
  if (coloured.empty()) return ColourScan();
  const ProgramChange change(m_state);
  m_tools.Control.SetLinesRTF(first, last, m_docColours.MergeColourTable(header) + coloured + '}');
}

std::string Colouring::ColourText(std::string_view rtfPiece) {
  if (rtfPiece.empty()) return "";
  const bool showsProgress = rtfPiece.size() > LongPiece;
  if (showsProgress) {
    m_tools.Status.SetStyle(platform::StatusStyle::Simple);
    ShowProgress(FirstPercent);
    m_state.Colouring = m_running = true;
    m_tools.Control.SetEnabled(false);
  }
  std::string piece(rtfPiece);
  piece.resize(rtfscan::ClearLn(piece));
  const std::string text = rich_text::ReadRtfPiece(piece);
  std::vector<templates::Synonym> captured;
  const ColourPass::LineResult result =
      Pass().Lines(text, m_tools.Settings.ReducedColours, &captured,
                   showsProgress ? ProgressOver(text.size()) : ColourPass::Progress());
  KeepSynonyms(captured);
  if (showsProgress) {
    m_tools.Control.SetEnabled(true);
    EndProgress();
    m_running = false;
  }
  return result.StaysOpen ? "" : RenderPiece(text, result.Runs);
}

std::string Colouring::RenderPiece(std::string_view text, const std::vector<PassRun>& runs) {
  std::string piece;
  piece.reserve(text.size() + text.size() / 2);
  std::size_t done = 0;
  for (const PassRun& run : runs) {
    if (run.Start >= run.End || !DrawsColour(run.Colour, m_state.Template.Colours)) continue;
    rich_text::AppendRtfText(piece, text.substr(done, run.Start - done));
    piece += "\\cf" + std::to_string(m_docColours.MapColour(run.Colour, m_state.Template.Colours)) + ' ';
    rich_text::AppendRtfText(piece, text.substr(run.Start, run.End - run.Start));
    piece += "\\cf0 ";
    done = run.End;
  }
  rich_text::AppendRtfText(piece, text.substr(done));
  return piece;
}

void Colouring::KeepSynonyms(const std::vector<templates::Synonym>& captured) {
  for (const templates::Synonym& synonym : captured)
    m_state.Template.Synonyms.AddReplacing(std::make_shared<templates::Synonym>(synonym), synonym.Word);
}

}  // namespace editor
