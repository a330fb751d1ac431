// Whole documents in the real text control, and the editing component's own JavaScript lexer on the same text.
//
// The control and its peer are two widgets of one kind in one process, shown on the platform that draws into memory;
// neither paints while it is measured.

#include <QApplication>
#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>

#include "bench/Inputs.h"
#include "editor/ColouredOutput.h"
#include "editor/Colouring.h"
#include "platform/qt/RichTextBox.h"
#include "rich_text/Rtf.h"

namespace bench {
namespace {

using platform::qt::RichTextBox;

class SilentStatus : public platform::StatusPanels {
 public:
  void SetPanelText(std::string_view, std::string_view) override {}
  void SetStyle(platform::StatusStyle) override {}
  void SetSimpleText(std::string_view) override {}
  void SetOverwrite(bool) override {}
};

/// The clock of a real event loop, and no events.
class QuietLoop : public platform::EventLoop {
 public:
  void DoEvents() override {}
  std::int64_t Milliseconds() const override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
  }
};

/// A control that holds the script, or a text of so many megabytes; made once each.
RichTextBox& BoxOf(std::size_t megabytes) {
  static std::map<std::size_t, std::unique_ptr<RichTextBox>> boxes;
  std::unique_ptr<RichTextBox>& box = boxes[megabytes];
  if (!box) {
    box = std::make_unique<RichTextBox>();
    box->resize(1000, 700);
    box->show();
    box->SetText(megabytes == 0 ? Script() : ScriptOfSize(megabytes * Megabyte));
  }
  return *box;
}

std::vector<rich_text::ColourRun> RunsOf(std::string_view text) {
  return editor::ColouredRuns(JavaScriptPass().Whole(text), JavaScript().Colours);
}

void TakeColoursAway(RichTextBox& box) {
  box.SetColours(JavaScript().Colours, {});
}

void ColourIt(RichTextBox& box) {
  box.SetColours(JavaScript().Colours, RunsOf(box.Text()));
}

/// The text out as RTF, read, coloured, written as RTF and set again: every step through the strings.
void ColourThroughRtf(RichTextBox& box) {
  const std::string text = rich_text::ReadRtf(box.TextRTF()).Text;
  const std::vector<editor::PassRun> runs = JavaScriptPass().Whole(text);
  std::string rtf;
  rtf.reserve(text.size() * 2);
  editor::WriteColouredRtf({text, runs, JavaScript().Colours}, "Courier New", [&](std::string_view piece) {
    rtf += piece;
    return true;
  });
  box.SetTextRTF(rtf);
}

/// Measures `work` on a control whose text is without colours, or coloured, before every round. A first round is not
/// counted: else the benchmark that happened to run before decides whether megabytes of strings are fresh memory, and
/// the peer's memory never is.
template <typename Work>
void MeasureBox(benchmark::State& state, RichTextBox& box, bool coloured, Work work) {
  ColourIt(box);
  work(box);
  for (auto _ : state) {
    if (!coloured) {
      state.PauseTiming();
      TakeColoursAway(box);
      state.ResumeTiming();
    }
    work(box);
  }
  CountText(state, box.Length());
}

std::size_t Size(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void ThroughRtfUncoloured(benchmark::State& state) {
  MeasureBox(state, BoxOf(Size(state)), false, ColourThroughRtf);
}
BENCHMARK(ThroughRtfUncoloured)->Arg(0)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

void ThroughRtfColoured(benchmark::State& state) {
  MeasureBox(state, BoxOf(Size(state)), true, ColourThroughRtf);
}
BENCHMARK(ThroughRtfColoured)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

/// As the editor colours: ColourScan, from the text to the control's colours.
void MeasureScan(benchmark::State& state, bool coloured) {
  SilentStatus status;
  QuietLoop loop;
  const settings::Settings settings;
  editor::DocumentState document;
  document.Template = JavaScript();
  RichTextBox& box = BoxOf(Size(state));
  editor::Colouring colouring({box, status, loop, settings}, document);
  colouring.ColourScan();  // prepares the template, as the document's first colouring does
  MeasureBox(state, box, coloured, [&](RichTextBox&) { colouring.ColourScan(); });
}

void ScanUncoloured(benchmark::State& state) {
  MeasureScan(state, false);
}
BENCHMARK(ScanUncoloured)->Arg(0)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

void ScanColoured(benchmark::State& state) {
  MeasureScan(state, true);
}
BENCHMARK(ScanColoured)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

void SetColours(benchmark::State& state) {
  const std::vector<rich_text::ColourRun> runs = RunsOf(Script());
  MeasureBox(state, BoxOf(0), true, [&](RichTextBox& box) { box.SetColours(JavaScript().Colours, runs); });
}
BENCHMARK(SetColours)->Unit(benchmark::kMillisecond)->UseRealTime();

void TextRTF(benchmark::State& state) {
  MeasureBox(state, BoxOf(0), true, [](RichTextBox& box) { benchmark::DoNotOptimize(box.TextRTF().data()); });
}
BENCHMARK(TextRTF)->Unit(benchmark::kMillisecond)->UseRealTime();

void SetTextRTF(benchmark::State& state) {
  ColourIt(BoxOf(0));
  const std::string rtf = BoxOf(0).TextRTF();
  MeasureBox(state, BoxOf(0), true, [&](RichTextBox& box) { box.SetTextRTF(rtf); });
}
BENCHMARK(SetTextRTF)->Unit(benchmark::kMillisecond)->UseRealTime();

// The peer.

constexpr const char* LexerKeywords =
    "abstract async await boolean break byte case catch char class const continue debugger default delete do double "
    "else enum export extends false final finally float for from function get goto if implements import in instanceof "
    "int interface let long native new null of package private protected public return set short static super switch "
    "synchronized this throw throws transient true try typeof undefined var void volatile while with yield";

/// The component with its own JavaScript lexer, and nothing that would hold it up: no undo, no notices, no folding.
std::unique_ptr<QsciScintillaBase> MakePeer() {
  auto peer = std::make_unique<QsciScintillaBase>();
  peer->resize(1000, 700);
  peer->show();
  peer->SendScintilla(QsciScintillaBase::SCI_SETCODEPAGE, QsciScintillaBase::SC_CP_UTF8);
  peer->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
  peer->SendScintilla(QsciScintillaBase::SCI_SETMODEVENTMASK, 0UL);
  peer->SendScintilla(QsciScintillaBase::SCI_SETLEXER, static_cast<unsigned long>(QsciScintillaBase::SCLEX_CPP));
  peer->SendScintilla(QsciScintillaBase::SCI_SETKEYWORDS, 0UL, LexerKeywords);
  peer->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT, static_cast<unsigned long>(Script().size()), Script().data());
  return peer;
}

void Lexer(benchmark::State& state) {
  static const std::unique_ptr<QsciScintillaBase> peer = MakePeer();
  for (auto _ : state) {
    state.PauseTiming();
    peer->SendScintilla(QsciScintillaBase::SCI_CLEARDOCUMENTSTYLE);
    peer->SendScintilla(QsciScintillaBase::SCI_STARTSTYLING, 0UL);
    state.ResumeTiming();
    peer->SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
  }
  CountText(state, Script().size());
  // A lexer that did not run would be an easy peer: the last bytes of the text must have been reached.
  if (peer->SendScintilla(QsciScintillaBase::SCI_GETENDSTYLED) < static_cast<long>(Script().size()))
    state.SkipWithError("the lexer did not reach the end of the text");
}
BENCHMARK(Lexer)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (!bench::ReadScript(argc, argv)) return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  std::_Exit(EXIT_SUCCESS);  // the widgets that were kept must not outlive the application
}
