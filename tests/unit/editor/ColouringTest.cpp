#include "editor/Colouring.h"

#include <gtest/gtest.h>

#include "tests/support/Characters.h"
#include "tests/support/FakeFrame.h"
#include "tests/support/LoadedTemplate.h"
#include "tests/support/MemoryTextControl.h"
#include "tests/support/TextControlContract.h"

namespace {

using List = std::vector<std::string>;

std::string Percent(const std::string& number) {
  return "Syntax Highlighting... [" + number + "% done]  (Esc to cancel)";
}

constexpr const char* Script =
    "D: ()*/\"\nC: #0000FF\nC: #00FF00\n"
    "L: if 0  1 True\nL: /* 2 */ 2 True\nL: // 1  2 True\nL: \" 2 \" 1 False\nL: call 0  2 False\n";

class ColouringTest : public testing::Test {
 protected:
  ColouringTest() { Use(Script); }

  void Use(std::string_view definition) {
    m_state.Template = tests::LoadedTemplate(definition);
    m_colouring.TemplateChanged();
  }

  /// One sign a byte: the number of its colour, "." for none, "?" for one of another template, "|" for a line end.
  std::string Picture() const {
    return tests::ColourPicture(m_control, [&](rich_text::ColourValue colour) {
      const auto& palette = m_state.Template.Colours;
      const auto place = std::find(palette.begin(), palette.end(), colour);
      return place == palette.end() ? '?' : static_cast<char>('1' + (place - palette.begin()));
    });
  }

  tests::MemoryTextControl m_control;
  tests::FakeStatus m_status;
  tests::FakeLoop m_loop;
  settings::Settings m_settings;
  editor::DocumentState m_state;
  editor::Colouring m_colouring{{m_control, m_status, m_loop, m_settings}, m_state};
};

TEST_F(ColouringTest, AWholeRunShowsItsTextsAndKeepsTheView) {
  m_control.SetText("if x // if\r\n/* a\nb */if");
  m_control.SetSelStart(3);
  m_control.SetSelLength(4);
  m_control.SetVerticalScroll(1);
  m_control.SetHorizontalScroll(7);
  tests::RecordedEvents events(m_control);
  m_colouring.ColourScan();
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), "normal", ""}));
  EXPECT_EQ(Picture(), "11...22222|2222|2222..") << "as many characters as the end word has are skipped behind it";
  EXPECT_EQ(events.Take(), List{}) << "colouring is no change";
  EXPECT_EQ(m_control.SelStart(), 3u);
  EXPECT_EQ(m_control.SelLength(), 4u);
  EXPECT_EQ(m_control.VerticalScroll(), 1u);
  EXPECT_EQ(m_control.HorizontalScroll(), 7u);
  EXPECT_TRUE(m_control.Enabled() && m_control.Redraw());
  EXPECT_EQ(m_control.FocusCalls(), 1);
  EXPECT_FALSE(m_state.Colouring || m_state.DontChange || m_colouring.Running());
  EXPECT_TRUE(m_loop.Yields.empty()) << "a short run does not yield";
}

TEST_F(ColouringTest, AnEmptyTextIsARunToo) {
  m_colouring.ColourScan();
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), "normal", ""}));
  EXPECT_EQ(m_control.Text(), "");
}

std::string Megabyte() {
  std::string text;
  while (text.size() < 1'000'000) text += "if abcde\n";
  return text;
}

TEST_F(ColouringTest, AVeryLongTextIsShownBeforeItIsColoured) {
  std::string text = Megabyte();
  for (int i = 0; i < 4; ++i) text += text;
  m_control.SetText(text);
  m_loop.OnEvents = [&] { m_state.Colouring = false; };
  m_colouring.ColourScan();
  EXPECT_EQ(m_loop.Yields, std::vector<std::int64_t>{0});
}

TEST_F(ColouringTest, ALongRunYieldsByTimeAndTellsHowFarItIs) {
  m_control.SetText(Megabyte());
  m_loop.MillisecondsALook = 10;  // a look at the start, one every 64 KB, and one behind each yield
  m_loop.OnEvents = [&] {
    EXPECT_TRUE(!m_control.Enabled() && m_control.Redraw()) << "the text is seen while it is being coloured";
    EXPECT_TRUE(m_state.Colouring && m_colouring.Running());
    m_colouring.ColourScan();
    m_colouring.ColourLines(1, 1);
  };
  m_colouring.ColourScan();
  EXPECT_EQ(m_loop.Yields, (std::vector<std::int64_t>{40, 80, 120, 160, 200}));
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), Percent("13"), Percent("33"), Percent("52"), Percent("72"),
                                   Percent("92"), "normal", ""}))
      << "a run asked for meanwhile is none";
  EXPECT_TRUE(Picture().ends_with("|11......|"));
}

TEST_F(ColouringTest, EscStopsAndWhatWasFoundStays) {
  m_control.SetText(Megabyte());
  m_control.SetSelStart(100);
  m_loop.MillisecondsALook = 10;
  m_loop.OnEvents = [&] { m_state.Colouring = m_loop.Yields.size() < 2; };
  m_colouring.ColourScan();
  EXPECT_EQ(m_loop.Yields.size(), 2u);
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), Percent("13"), Percent("33"), "normal", ""}));
  const std::string picture = Picture();
  EXPECT_TRUE(picture.starts_with("11......|11"));
  EXPECT_NEAR(static_cast<double>(picture.rfind('1')), 5 * 64 * 1024, 100);
  EXPECT_TRUE(m_control.Enabled() && m_control.Redraw());
  EXPECT_EQ(m_control.SelStart(), 100u);
}

TEST_F(ColouringTest, TheFourModes) {
  const struct {
    bool UseColours, ReducedColours;
    const char *Whole, *Line;  ///< after a whole run; then, from no colours at all, after line 1 alone
  } cases[] = {
      {false, false, ".......|......", ".......|......"},  // the open run asks for a whole run, which takes all away
      {false, true, ".......|......", "11.2222|......"},
      {true, true, "11.2222|222222", "11.2222|......"},
      {true, false, "11.2222|222222", "11.2222|222222"},
  };
  m_control.SetText("if /* a\r\nif \"b\"");
  for (const auto& c : cases) {
    m_settings.UseColours = c.UseColours;
    m_settings.ReducedColours = c.ReducedColours;
    m_control.SetColours({0x123456}, {{0, 5, 1}});
    m_colouring.ColourScan();
    EXPECT_EQ(Picture(), c.Whole) << c.UseColours << c.ReducedColours;
    m_control.SetColours({}, {});
    m_colouring.ColourLines(1, 1);
    EXPECT_EQ(Picture(), c.Line) << c.UseColours << c.ReducedColours;
  }
}

TEST_F(ColouringTest, WithoutColourWordsNothingHappens) {
  Use("C: #0000FF\nD: ()\n");
  m_control.SetText("if x");
  m_control.SetColours({0xFF}, {{0, 2, 1}});
  m_colouring.ColourScan();
  m_colouring.ColourLines(1, 1);
  EXPECT_EQ(Picture(), "11..");
  EXPECT_EQ(m_status.Take(), List{});
  EXPECT_EQ(m_control.FocusCalls(), 0);
}

TEST_F(ColouringTest, LinesWorkedOutByHand) {
  const struct {
    const char *Text, *Picture;
    std::size_t First = 1, Last = 1;
  } cases[] = {
      {"if x if", "11...11"},
      {"elif if", "......."},                        // a round looks at the first occurrence alone
      {"xif \"a\" if", ".....1..11"},                // and the next one looks again
      {"\"a\"if", ".1.11"},                          // the end word is skipped, and delimits
      {"/**//**/ x", "22222222.."},                  // an included one is not skipped
      {"/*/ x", "222.."},                            // and may share characters with the start word
      {"call abcdefgh", "....2222....."},            // as many as the word has, from behind it
      {"a // b if", "..2222222"},                    // the last line has no line end of its own
      {"if\nif\nif", "11|??|??"},                    // only the lines given change
      {"if\nif\nx", "..|11|?", 2, 2},                // (the first line has lost its colour by hand)
      {"/* a\r\nb */ if\n", "2222|2222.11|", 1, 2},  // over a line end
      {"a\rif", "?|11", 2, 99},
      {"if\nif", "11|??", 0, 0},
      {"if", "??", 5, 9},
      {"if {\\b}\t// \xC3\xA9", "11......22222"},
  };
  for (const auto& c : cases) {
    m_control.SetText(c.Text);
    m_control.SetColours({0x123456}, {{0, m_control.Length(), 1}});
    if (c.First == 2 && c.Last == 2) m_control.SetColours({0x123456}, {{3, m_control.Length(), 1}});
    tests::RecordedEvents events(m_control);
    m_colouring.ColourLines(c.First, c.Last);
    EXPECT_EQ(Picture(), c.Picture) << c.Text;
    EXPECT_EQ(m_control.Text(), c.Text);
    EXPECT_EQ(events.Take(), List{});
    m_control.SetEvents(nullptr);
  }
  EXPECT_EQ(m_status.Take(), List{}) << "short pieces show nothing";
  EXPECT_EQ(m_colouring.ColourText(""), "") << "an empty piece asks for a whole run";
}

TEST_F(ColouringTest, LongPiecesShowProgressAndCanBeStopped) {
  m_control.SetText(std::string(293, 'a'));
  m_colouring.ColourLines(1, 1);
  EXPECT_EQ(m_status.Take(), List{}) << "300 characters with the line's end";
  m_control.SetText(std::string(294, 'a'));
  m_colouring.ColourLines(1, 1);
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), "normal", ""}));

  std::string text;
  while (text.size() < 999) text += "if ";
  m_control.SetText(text);
  m_loop.MillisecondsALook = 30;
  m_loop.OnEvents = [&] {
    EXPECT_FALSE(m_control.Enabled());
    m_state.Colouring = m_loop.Yields.size() < 3;
  };
  m_colouring.ColourLines(1, 1);
  EXPECT_EQ(m_status.Take(), (List{"simple", Percent("0"), Percent(""), Percent("1"), Percent("1"), "normal", ""}))
      << "no digit for less than half a percent, 0.2 here";
  EXPECT_EQ(Picture(), "11.11.11" + std::string(991, '.'));
  EXPECT_TRUE(m_control.Enabled());

  m_loop.OnEvents = nullptr;
  m_control.SetText(std::string(300, 'a') + " /* b\nc");
  m_colouring.ColourLines(1, 1);
  EXPECT_EQ(m_status.Take(),
            (List{"simple", Percent("0"), "normal", "", "simple", Percent("0"), Percent(""), "normal", ""}))
      << "the piece, then the whole document";
  EXPECT_TRUE(Picture().ends_with(".2222|2"));
}

TEST_F(ColouringTest, SynonymsAreCapturedAndLaterOnesWin) {
  Use("D: ()\nC: #0000FF\nL: zzz 0  1 True\nW: \"As\" 1\n3 \" \" 0\n\"\"\n"
      "W: \"Integer\" 0\nW: \"Long\" 0\nY: \"old\" \"Integer\"\n");
  m_control.SetText("Dim X as INTEGER\nDim n As Nothing\nAs Long\n( z)  as ( Long As\nx As Long");
  const auto captured = [&](std::size_t line) {
    m_colouring.ColourLines(line, line);
    std::string all;
    const auto& synonyms = m_state.Template.Synonyms;
    for (std::size_t i = 1; i <= synonyms.Count(); ++i)
      all += synonyms.Item(i)->Word + '=' + synonyms.Item(i)->Synonym + ' ';
    return all;
  };
  EXPECT_EQ(captured(1), "old=Integer x=integer ");
  EXPECT_EQ(captured(2), "old=Integer x=integer ") << "no action word";
  EXPECT_EQ(captured(3), "old=Integer x=integer ") << "no word before";
  EXPECT_EQ(captured(4), "old=Integer x=integer z=long ") << "blanks in a row count once";
  EXPECT_EQ(captured(5), "old=Integer z=long x=long ");
  EXPECT_TRUE(m_state.Template.Synonyms.Find("X"));
}

}  // namespace
