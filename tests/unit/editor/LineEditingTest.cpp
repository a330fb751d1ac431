// The edited line: what is plain and what is coloured after any row of edits and caret moves, against the rules as they
// are told, on the rich text of the whole document.

#include "editor/LineEditing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "editor/rtfscan/Scanners.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"
#include "tests/support/DocumentFixture.h"
#include "tests/support/FakePopups.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/support/TextControlContract.h"

namespace {

constexpr const char* Definition =
    "N: Test\nD: ()*/\"\nC: #0000FF\nC: #00FF00\n"
    "L: if 0  1 True\nL: /* 2 */ 2 True\nL: // 1  2 True\nL: \" 2 \" 1 False\n";

/// The rules as they are told. Only what colours lines is the program's own, which has a literal model elsewhere.
class LiteralEditing : public tests::SilentEvents {
 public:
  explicit LiteralEditing(const settings::Settings& settings) : m_settings(settings) {
    m_state.Template = tests::LoadedTemplate(Definition);
  }
  void Open(const std::string& text) {
    m_control.SetEvents(nullptr);
    m_control.SetText(text);
    m_control.SetEvents(this);
    m_state.LineCount = m_control.LineCount();
    m_colouring.ColourScan();
  }

  tests::MemoryTextControl& Control() { return m_control; }
  editor::DocumentState& State() { return m_state; }
  bool TipClosed = false;

  void Change(const platform::TextChange&) override {
    if (m_state.DontChange) return;
    const auto c = Line(), n = static_cast<std::int64_t>(editor::rtfscan::NumberOfLinesIn(m_control.TextRTF())) - 1;
    const auto o = static_cast<std::int64_t>(m_state.LineCount);
    if (m_state.SelectedChars > 0 && n >= o) {
      if (Colours()) ColourLines(c - (n - o) - static_cast<std::int64_t>(m_state.SelectedLines) + 1, c);
      m_state.SelectedChars = m_control.SelLength();
      m_state.LineCount = static_cast<std::size_t>(n);
      return;
    }
    auto edited = static_cast<std::int64_t>(m_state.EditedLine);
    if (n != o) {
      TipClosed = true;
      if (n < o) m_state.SelectedChars = m_control.SelLength(), edited = 0;
      if (n > o) edited = c - (n - o);
      m_state.LineCount = static_cast<std::size_t>(n);
    }
    if (edited != c) {
      if (edited == 0) {
        edited = c;
        Uncolour(c);
      } else {
        if (Colours()) ColourLines(std::min(edited, c), std::max(edited, c));
        edited = 0;
      }
    }
    m_state.EditedLine = static_cast<std::size_t>(edited);
  }

  void SelChange() override {
    if (m_control.SelLength() != m_state.SelectedChars) {
      m_state.SelectedChars = m_control.SelLength();
      m_state.SelectedLines = editor::rtfscan::NumberOfLinesIn(m_control.SelRTF());
    }
    Status();
  }

  void Status() {
    const auto edited = static_cast<std::int64_t>(m_state.EditedLine);
    if (m_state.DontChange || m_state.KeyTyped || edited == 0 || Line() == edited) return;
    if (Colours()) ColourLines(std::min(edited, Line()), std::max(edited, Line()));
    m_state.EditedLine = 0;
  }

 private:
  std::int64_t Line() const { return static_cast<std::int64_t>(m_control.LineOf(m_control.SelStart())); }
  bool Colours() const { return m_settings.UseColours || m_settings.ReducedColours; }
  void ColourLines(std::int64_t first, std::int64_t last) {
    m_colouring.ColourLines(static_cast<std::size_t>(std::max<std::int64_t>(first, 1)),
                            static_cast<std::size_t>(std::max<std::int64_t>(last, 1)));
  }
  void Uncolour(std::int64_t line) {
    const std::string rtf = m_control.TextRTF();
    const std::size_t body = rtf.find(' ', rtf.find("\\deflang")) + 1;
    const std::string rest = rtf.substr(body);
    const std::size_t s = editor::rtfscan::GoToLine(rest, static_cast<std::size_t>(line - 1)) - 1;
    const std::size_t e = rest.find("\\par ", s);
    std::string piece = rest.substr(s, e - s);
    piece.resize(editor::rtfscan::ClearLn(piece));
    // A run that goes on behind the line keeps its colour there.
    const std::size_t last = rest.rfind("\\plain", e);
    const std::string goesOn = last > e ? "" : rest.substr(last, rest.find(' ', last) + 1 - last);
    const editor::ProgramChange change(m_state);
    m_control.SetTextRTF(rtf.substr(0, body) + rest.substr(0, s) + "\\cf0 " + piece + "\\par " + goesOn +
                         rest.substr(e + 5));
  }

  const settings::Settings& m_settings;
  tests::MemoryTextControl m_control;
  tests::FakeStatus m_status;
  tests::FakeLoop m_loop;
  editor::DocumentState m_state;
  editor::Colouring m_colouring{{m_control, m_status, m_loop, m_settings}, m_state};
};

class LineEditingTest : public tests::DocumentFixture {
 protected:
  LineEditingTest() {
    m_document.SetPopups(m_popups);
    m_document.SetTemplate(m_folder.Write("T.def", Definition));
  }

  void Play(std::uint64_t seed) {
    laws::Dice dice(seed);
    m_frame.Values.UseColours = dice.Chance(60);
    m_frame.Values.ReducedColours = dice.Chance(60);
    LiteralEditing literal(m_frame.Values);
    const std::string start = Piece(dice, 40);
    Open(start);
    literal.Open(start);
    m_document.State().EditedLine = 0;
    m_document.State().KeyTyped = false;
    m_popups.Log.clear();
    for (int step = 0; step < 40; ++step) {
      const std::vector<std::size_t> offsets = tests::CuttingOffsets(m_control.Text());
      const std::size_t from = dice.Pick(offsets), to = dice.Chance(40) ? dice.Pick(offsets) : from;
      const std::string piece = dice.Chance(25) ? "" : Piece(dice, dice.Chance(80) ? 2 : 12);
      const bool typed = dice.Chance(60), moves = dice.Chance(50), edits = dice.Chance(70);
      for (platform::TextControl* control :
           {static_cast<platform::TextControl*>(&m_control), static_cast<platform::TextControl*>(&literal.Control())}) {
        editor::DocumentState& state = control == &m_control ? m_document.State() : literal.State();
        state.KeyTyped = false;
        if (moves) control->SetSelStart(std::min(from, to));
        if (moves && from != to) control->SetSelLength(std::max(from, to) - std::min(from, to));
        state.KeyTyped = typed;
        if (edits) control->SetSelText(piece);
      }
      SCOPED_TRACE("QUILLMARK_LAW_SEED=" + std::to_string(seed) + " step " + std::to_string(step));
      ASSERT_EQ(m_control.TextRTF(), literal.Control().TextRTF());
      ASSERT_EQ(m_document.State().EditedLine, literal.State().EditedLine);
      ASSERT_EQ(m_document.State().LineCount, literal.State().LineCount);
      ASSERT_EQ(!m_popups.Log.empty(), literal.TipClosed);
      m_wentPlain += m_document.State().EditedLine != 0;
    }
  }

  static std::string Piece(laws::Dice& dice, std::size_t longest) {
    static const std::vector<std::string> parts = {"if", " ", "x", "/*", "*/", "//", "\"", "\n", "\n", "\xC3\xA9"};
    return dice.Pick(parts) + dice.Text(parts, longest - 1);
  }

  std::string Picture() const { return tests::ColourPicture(m_control); }

  tests::FakePopups m_popups;
  int m_wentPlain = 0;
};

TEST_F(LineEditingTest, AnyEditsAndMovesColourAsTheRulesSay) {
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(150); ++seed) {
    Play(seed);
    if (HasFailure()) break;
  }
  EXPECT_GT(m_wentPlain, 500);
}

TEST_F(LineEditingTest, WritingForTheUserHasToBeSavedAndColouringHasNot) {
  Open("if\n");
  m_document.ColourScan();
  EXPECT_TRUE(m_document.State().Saved);
  m_document.State().DontChange = true;
  m_control.SetSelText("x");
  m_document.State().DontChange = false;
  EXPECT_FALSE(m_document.State().Saved);
  EXPECT_EQ(m_document.State().EditedLine, 0u);
}

}  // namespace
