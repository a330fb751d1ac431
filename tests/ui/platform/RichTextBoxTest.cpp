// The real text control keeps the contract of all text controls, and is the same as the one in memory.

#include "platform/qt/RichTextBox.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>

#include "tests/support/MemoryTextControl.h"
#include "tests/support/TextControlContract.h"

namespace tests {
namespace {

using platform::qt::ColourStyles;
using platform::qt::RichTextBox;

struct RealControl {
  static std::unique_ptr<platform::TextControl> Make() {
    auto box = std::make_unique<RichTextBox>();
    box->resize(300, 200);
    box->show();
    QApplication::processEvents();
    return box;
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Real, TextControlContract, RealControl);

TEST(RichTextBox, IsTheControlInMemoryUnderRandomOperations) {
  for (std::uint64_t seed = laws::FirstSeed(); seed < laws::FirstSeed() + laws::Runs(20); ++seed) {
    SCOPED_TRACE("QUILLMARK_LAW_SEED=" + std::to_string(seed));
    MemoryTextControl memory;
    const auto real = RealControl::Make();
    ControlComparison(memory, *real, seed).Play(60);
    if (HasFailure()) return;
  }
}

TEST(RichTextBox, ColoursOfALongTextAreThoseGivenAndTheViewStands) {
  RichTextBox box;
  box.resize(300, 200);
  box.show();
  rich_text::StyledText styled{{}, {0xFF, 0xFF00}, {}};
  while (styled.Text.size() < 2'500'000) styled.Text += "a line of some length\r\n";
  // Short runs at first, then one over several of the pieces that the control hands on.
  for (std::size_t at = 0; at < 1'200'000; at += 23)
    styled.Runs.push_back({at + 2, at + 6, static_cast<std::uint32_t>(at % 2 + 1)});
  styled.Runs.push_back({1'200'000 / 23 * 23 + 23, 2'400'000 / 23 * 23, 1});
  box.SetText(styled.Text);
  const std::string expected = rich_text::WriteRtf(styled, "Courier New");
  box.SetVerticalScroll(500);
  box.SetColours(styled.Colours, styled.Runs);
  EXPECT_EQ(box.VerticalScroll(), 500U);
  EXPECT_EQ(box.verticalScrollBar()->value(), 500);
  EXPECT_TRUE(box.viewport()->updatesEnabled());
  EXPECT_TRUE(box.TextRTF() == expected);
  box.SetColours({}, {});
  box.SetTextRTF(expected);
  EXPECT_TRUE(box.TextRTF() == expected);
}

TEST(RichTextBox, ChangesOfOneActionAreToldAsOne) {
  RichTextBox box;
  laws::Dice dice(3);
  box.SetText("the text that is changed in several places at once");
  RecordedEvents events(box);
  for (int action = 0; action < 300; ++action) {
    for (std::size_t part = 1 + dice.Below(4); part > 0; --part) {
      const unsigned long at = dice.Below(box.Length() + 1);
      if (dice.Chance(55))
        box.SendScintilla(QsciScintillaBase::SCI_INSERTTEXT, at, "new");
      else
        box.SendScintilla(QsciScintillaBase::SCI_DELETERANGE, at, static_cast<long>(dice.Below(box.Length() + 1 - at)));
    }
    QApplication::processEvents();
    ASSERT_EQ(events.Mirror(), box.Text());
    const std::vector<std::string> log = events.Take();
    ASSERT_LE(std::count(log.begin(), log.end(), "Change"), 1);
  }
}

/// The median time of typing one character in the middle of a text, in nanoseconds.
qint64 TypingTime(RichTextBox& box, std::size_t textSize) {
  std::string text;
  text.reserve(textSize + 32);
  while (text.size() < textSize) text += "a line with an \xC3\xA9 in it\n";
  box.SetText(text);
  box.SetSelStart(box.LineStart(box.LineCount() / 2));
  std::vector<qint64> times;
  for (int key = 0; key < 25; ++key) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QElapsedTimer timer;
    timer.start();
    QApplication::sendEvent(&box, &press);
    times.push_back(timer.nsecsElapsed());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// The component's own ways of telling accessibility and the program about a change count every character before it: in
// this text a hundred times slower and more. The margin is for busy machines.
TEST(RichTextBox, AKeyInALongTextCostsWhatItCostsInAShortOne) {
  const auto owned = RealControl::Make();
  auto& box = dynamic_cast<RichTextBox&>(*owned);
  for (const bool screenReader : {false, true}) {
    QAccessible::setActive(screenReader);
    const qint64 inShort = TypingTime(box, 1000), inLong = TypingTime(box, 20'000'000);
    EXPECT_LT(inLong, 8 * inShort) << "screen reader: " << screenReader;
  }
  QAccessible::setActive(false);
}

TEST(RichTextBox, TakesTheNearestColourWhenNumbersRunOut) {
  RichTextBox box;
  const std::size_t count = ColourStyles::MaxColours + 3;
  box.SetText(std::string(count, 'x'));
  std::vector<rich_text::ColourValue> colours;
  std::vector<rich_text::ColourRun> runs;
  for (std::uint32_t i = 0; i < count; ++i) {
    colours.push_back(i);
    runs.push_back({i, i + 1, i + 1});
  }
  box.SetColours(colours, runs);
  for (std::size_t i = 0; i < count; ++i)
    EXPECT_EQ(box.StretchAt(i).Colour, std::min<std::size_t>(i, ColourStyles::MaxColours - 1)) << i;
  colours.assign({0xABCDEF});
  box.SetColours(colours, {{0, 1, 1}});
  EXPECT_EQ(box.StretchAt(0).Colour, 0xABCDEFu) << "colours no longer used make room";
}

TEST(RichTextBox, TextOfADarkDesktopIsReadableAndItsColoursAreReportedAsGiven) {
  RichTextBox box;
  QPalette dark = box.palette();
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Text, Qt::white);
  box.setPalette(dark);
  box.SetText("dark");
  box.SetColours({0x800000}, {{0, 4, 1}});
  EXPECT_EQ(box.StretchAt(0).Colour, 0x800000u);
  const auto shown = static_cast<rich_text::ColourValue>(
      box.SendScintilla(QsciScintillaBase::SCI_STYLEGETFORE, ColourStyles::StyleAt(1)));
  EXPECT_GE(platform::qt::Contrast(shown, 0x202020), 4.5);
  EXPECT_EQ(platform::qt::ReadableColour(0x00FFFF, 0xFFFFFF), 0x00FFFFu) << "a light desktop shows what is given";
}

TEST(RichTextBox, PaintsNothingWhileRedrawIsOff) {
  const auto owned = RealControl::Make();
  auto& box = dynamic_cast<RichTextBox&>(*owned);
  const auto picture = [&] { return box.grab().toImage(); };
  const QImage empty = picture();
  box.SetText("MMMMMMMM\nMMMMMMMM");
  const QImage text = picture();
  EXPECT_NE(text, empty);
  box.SetRedraw(false);
  box.SetText("");
  QApplication::processEvents();
  box.SetRedraw(true);
  box.Refresh();
  QApplication::processEvents();
  EXPECT_EQ(picture(), empty);
}

}  // namespace
}  // namespace tests
