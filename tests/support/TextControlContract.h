#pragma once
// What every text control keeps to, as one suite of tests: the control in memory and the real one both run it, so that
// what the first is trusted for holds for the second. A factory is a class with Make(), which gives an owned control;
// INSTANTIATE_TYPED_TEST_SUITE_P(Name, TextControlContract, Factory) runs the suite on it. CompareControls plays the
// same random operations to two controls and compares them after every one.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/TextControl.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "tests/laws/Dice.h"
#include "tests/support/Characters.h"

namespace tests {

/// Writes down what a control tells, and keeps a copy of its text by applying the changes told: a change that tells
/// something else than what happened makes the copy differ.
class RecordedEvents : public platform::TextControlEvents {
 public:
  explicit RecordedEvents(platform::TextControl& control) : m_control(control), m_mirror(control.Text()) {
    control.SetEvents(this);
  }
  RecordedEvents(const RecordedEvents&) = delete;
  RecordedEvents& operator=(const RecordedEvents&) = delete;
  ~RecordedEvents() override { m_control.SetEvents(nullptr); }

  bool KeyDown(int keyCode, int shift) override {
    Log.push_back("KeyDown " + std::to_string(keyCode) + " " + std::to_string(shift));
    return keyCode == ConsumedKey;
  }
  bool KeyPress(char32_t character) override {
    Log.push_back("KeyPress " + std::to_string(static_cast<unsigned>(character)));
    return character == ConsumedCharacter;
  }
  void KeyUp(int keyCode, int shift) override {
    Log.push_back("KeyUp " + std::to_string(keyCode) + " " + std::to_string(shift));
  }
  void Change(const platform::TextChange& change) override {
    Log.emplace_back("Change");
    EXPECT_EQ(m_mirror.substr(change.Start, change.Removed.size()), change.Removed);
    m_mirror.replace(change.Start, change.Removed.size(),
                     m_control.TextRange(change.Start, change.Start + change.Inserted));
    EXPECT_EQ(m_mirror, m_control.Text()) << "the changes told are not those made";
  }
  void SelChange() override { Log.emplace_back("SelChange"); }
  bool MouseDown(int button, int shift, int, int) override {
    Log.push_back("MouseDown " + std::to_string(button) + " " + std::to_string(shift));
    return button == ConsumedButton;
  }
  void MouseUp(int button, int, int, int) override { Log.push_back("MouseUp " + std::to_string(button)); }
  void FilesDropped(const std::vector<std::string>& paths) override {
    for (const std::string& path : paths) Log.push_back("Dropped " + path);
  }

  /// What was told since the last call.
  std::vector<std::string> Take() { return std::exchange(Log, {}); }
  const std::string& Mirror() const { return m_mirror; }

  std::vector<std::string> Log;
  int ConsumedKey = -1;
  char32_t ConsumedCharacter = 0;
  int ConsumedButton = 0;

 private:
  platform::TextControl& m_control;
  std::string m_mirror;
};

/// The offsets at which a text may be cut: between characters, but not between CR and LF.
inline std::vector<std::size_t> CuttingOffsets(const std::string& text) {
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i <= text.size(); ++i)
    if (!IsInside(text, i)) offsets.push_back(i);
  return offsets;
}

template <typename Factory>
class TextControlContract : public testing::Test {
 protected:
  std::unique_ptr<platform::TextControl> m_owned = Factory::Make();
  platform::TextControl& m_control = *m_owned;
};
TYPED_TEST_SUITE_P(TextControlContract);

TYPED_TEST_P(TextControlContract, KeepsEveryByteAndFindsLines) {
  using namespace std::string_literals;
  struct Case {
    std::string Text;
    std::vector<std::size_t> LineStarts;
    std::string LineEnd;
  };
  const Case cases[] = {
      {"", {0}, "\r\n"},
      {"one", {0}, "\r\n"},
      {"one\n", {0, 4}, "\n"},
      {"a\rb\nc\r\nd\n\r\n", {0, 2, 4, 7, 9, 11}, "\r"},
      {"nul\0 bell\a\r\n\x1A"s, {0, 12}, "\r\n"},
      {"\xC3\xA9\xE2\x82\xAC\n\xF0\x9F\x98\x80x", {0, 6}, "\n"},
  };
  platform::TextControl& control = this->m_control;
  for (const Case& c : cases) {
    control.SetText(c.Text);
    EXPECT_EQ(control.Text(), c.Text);
    EXPECT_EQ(control.Length(), c.Text.size());
    EXPECT_EQ(control.LineEnd(), c.LineEnd);
    ASSERT_EQ(control.LineCount(), c.LineStarts.size()) << testing::PrintToString(c.Text);
    for (std::size_t line = 1; line <= c.LineStarts.size(); ++line) {
      EXPECT_EQ(control.LineStart(line), c.LineStarts[line - 1]);
      EXPECT_EQ(control.LineOf(c.LineStarts[line - 1]), line);
      EXPECT_EQ(control.ColumnOf(c.LineStarts[line - 1]), 1u);
    }
    EXPECT_EQ(control.LineStart(c.LineStarts.size() + 5), c.Text.size());
    EXPECT_EQ(control.LineOf(c.Text.size() + 100), c.LineStarts.size());
  }
  EXPECT_EQ(control.ColumnOf(10), 2u) << "a column counts characters, not bytes";
  EXPECT_EQ(control.TextRange(6, 1000), "\xF0\x9F\x98\x80x");
}

TYPED_TEST_P(TextControlContract, TellsChangesAndSelectionsInThisOrder) {
  using List = std::vector<std::string>;
  platform::TextControl& control = this->m_control;
  control.SetText("0123456789");
  RecordedEvents events(control);
  control.SetSelStart(2);
  control.SetSelLength(3);
  EXPECT_EQ(control.SelText(), "234");
  EXPECT_EQ(events.Take(), (List{"SelChange", "SelChange"}));
  control.SetSelLength(3);
  EXPECT_EQ(events.Take(), List{}) << "the same selection again is no news";
  control.SetSelText("xy\n");
  EXPECT_EQ(control.Text(), "01xy\n56789");
  EXPECT_EQ(control.SelStart(), 5u);
  EXPECT_EQ(control.SelLength(), 0u);
  EXPECT_EQ(events.Take(), (List{"Change", "SelChange"}));
  control.SetSelText("");
  EXPECT_EQ(events.Take(), List{});
  control.SetSelStart(1000);
  control.SetSelLength(1000);
  EXPECT_EQ(control.SelStart(), control.Length());
  EXPECT_EQ(control.SelLength(), 0u);
  events.Take();
  control.SetText("new");
  EXPECT_EQ(events.Take(), (List{"Change", "SelChange"}));
  EXPECT_EQ(control.SelStart(), 0u);
}

// A view that is put back after an undo may point anywhere in the text that there is then.
TYPED_TEST_P(TextControlContract, NoSelectionSplitsACharacter) {
  platform::TextControl& control = this->m_control;
  control.SetText("a\xC3\xA9\r\n\xF0\x9F\x98\x80z");
  const std::size_t whole[] = {0, 1, 1, 3, 3, 5, 5, 5, 5, 9, 10, 10};
  for (std::size_t offset = 0; offset < std::size(whole); ++offset) {
    control.SetSelStart(offset);
    EXPECT_EQ(control.SelStart(), whole[offset]) << offset;
    control.SetSelStart(0);
    control.SetSelLength(offset);
    EXPECT_EQ(control.SelLength(), whole[offset]) << offset;
    control.Select(offset, 0);
    EXPECT_EQ(control.SelLength(), whole[offset]) << offset;
  }
}

TYPED_TEST_P(TextControlContract, RtfOfItsOwnTextChangesColoursOnly) {
  platform::TextControl& control = this->m_control;
  std::string text = "if (x) {\r\n  y = \"\xC3\xA9\\\";\n}\r\t0\r\n";
  for (int i = 0; i < 200; ++i) text += "line\r\n";
  control.SetText(text);
  control.SetSelStart(3);
  control.SetSelLength(4);
  control.SetVerticalScroll(2);
  RecordedEvents events(control);
  const std::string plain = control.TextRTF();
  const std::vector<rich_text::ColourValue> colours = {0xFF, 0x8000, 0xC0FFEE};
  const std::vector<rich_text::ColourRun> runs = {{0, 2, 3}, {2, 6, 1}, {10, 20, 3}};
  control.SetColours(colours, runs);
  const std::string coloured = control.TextRTF();
  EXPECT_EQ(coloured, rich_text::WriteRtf({text, colours, runs}, "Courier New"));
  control.SetTextRTF(plain);
  EXPECT_EQ(control.TextRTF(), plain);
  control.SetTextRTF(coloured);
  EXPECT_EQ(control.TextRTF(), coloured);
  EXPECT_EQ(control.Text(), text);
  EXPECT_EQ(control.SelStart(), 3u);
  EXPECT_EQ(control.SelLength(), 4u);
  EXPECT_EQ(control.VerticalScroll(), 2u);
  EXPECT_EQ(events.Take(), std::vector<std::string>{});
  EXPECT_EQ(control.SelRTF(), rich_text::WriteRtf({"(x) ", colours, {{0, 3, 1}}}, "Courier New", false));
}

TYPED_TEST_P(TextControlContract, RtfOfAnotherTextReplacesItInTheDocumentsLineEnds) {
  platform::TextControl& control = this->m_control;
  control.SetText("one\ntwo\r\n");
  RecordedEvents events(control);
  control.SetTextRTF(rich_text::WriteRtf({"one\r\ntwo\r\nthree", {0xFF}, {{5, 8, 1}}}, "Courier New"));
  EXPECT_EQ(control.Text(), "one\ntwo\nthree");
  EXPECT_EQ(control.TextRTF(), rich_text::WriteRtf({"one\ntwo\nthree", {0xFF}, {{4, 7, 1}}}, "Courier New"));
  EXPECT_EQ(events.Take(), std::vector<std::string>{"Change"});
}

TYPED_TEST_P(TextControlContract, LinesTravelAsRtfOfTheirOwn) {
  platform::TextControl& control = this->m_control;
  control.SetText("aa\r\nbbb\ncc");
  control.SetColours({0xFF, 0xFF00}, {{0, 4, 1}, {4, 6, 2}, {8, 10, 1}});
  const std::string second = control.LinesRTF(2, 2);
  EXPECT_EQ(second, rich_text::WriteRtf({"bbb", {0xFF00}, {{0, 2, 1}}}, "Courier New"));
  EXPECT_EQ(control.LinesRTF(2, 3),
            rich_text::WriteRtf({"bbb\ncc", {0xFF00, 0xFF}, {{0, 2, 1}, {4, 6, 2}}}, "Courier New"));
  RecordedEvents events(control);
  const std::string before = control.TextRTF();
  control.SetLinesRTF(2, 2, rich_text::WriteRtf({"bxb", {0xFF}, {{0, 3, 1}}}, "Courier New"));
  EXPECT_EQ(control.TextRTF(), before) << "another text than the line's changes nothing";
  control.SetLinesRTF(1, 2, rich_text::WriteRtf({"aa\nbbb", {7}, {{1, 6, 1}}}, "Courier New"));
  EXPECT_EQ(control.TextRTF(), rich_text::WriteRtf({"aa\nbbb\ncc", {7, 0xFF}, {{1, 6, 1}, {7, 9, 2}}}, "Courier New"));
  EXPECT_EQ(control.Text(), "aa\r\nbbb\ncc");
  control.SetSelStart(5);
  control.SetSelText("new");
  EXPECT_EQ(control.LinesRTF(2, 2), rich_text::WriteRtf({"bnewbb", {7}, {{0, 1, 1}, {4, 6, 1}}}, "Courier New"))
      << "text put in has no colour";
  EXPECT_EQ(events.Take(), (std::vector<std::string>{"SelChange", "Change", "SelChange"}));
}

REGISTER_TYPED_TEST_SUITE_P(TextControlContract, KeepsEveryByteAndFindsLines, TellsChangesAndSelectionsInThisOrder,
                            NoSelectionSplitsACharacter, RtfOfItsOwnTextChangesColoursOnly,
                            RtfOfAnotherTextReplacesItInTheDocumentsLineEnds, LinesTravelAsRtfOfTheirOwn);

/// Plays the same random operations to both controls; the first difference fails the test and ends the play.
class ControlComparison {
 public:
  ControlComparison(platform::TextControl& trusted, platform::TextControl& tested, std::uint64_t seed)
      : m_trusted(trusted), m_tested(tested), m_dice(seed) {}

  void Play(int steps) {
    const std::string start = Piece(20);
    m_trusted.SetText(start);
    m_tested.SetText(start);
    RecordedEvents trustedEvents(m_trusted), testedEvents(m_tested);
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step) + ": " + Operate());
      EXPECT_EQ(testedEvents.Take(), trustedEvents.Take());
      Compare();
    }
  }

 private:
  std::string Piece(std::size_t longest) {
    static const std::vector<std::string> parts = {
        "a", "word ", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",   "\r\n", "\n", "\r",
        "{", "\\",    "}",        "\t",           std::string(1, '\0'), "\x7F", "  "};
    std::string piece;
    for (std::size_t count = m_dice.Below(longest + 1); count > 0; --count) piece += m_dice.Pick(parts);
    return piece;
  }

  std::vector<rich_text::ColourRun> Runs(const std::string& text) {
    const std::vector<std::size_t> offsets = CuttingOffsets(text);
    std::vector<rich_text::ColourRun> runs;
    for (std::size_t i = 0; i + 1 < offsets.size();) {
      const std::size_t end = std::min(offsets.size() - 1, i + 1 + m_dice.Below(5));
      if (m_dice.Chance(50))
        runs.push_back({offsets[i], offsets[end], static_cast<std::uint32_t>(m_dice.Between(1, 4))});
      i = end;
    }
    return runs;
  }

  template <typename Action>
  void Both(Action action) {
    action(m_trusted);
    action(m_tested);
  }

  /// One operation, and its name.
  std::string Operate() {
    const std::string text = m_trusted.Text();
    const std::vector<rich_text::ColourValue> colours = {0xFF, 0x8000, 0x123456, 0xFF};
    const std::size_t offset = m_dice.Pick(CuttingOffsets(text)), other = m_dice.Pick(CuttingOffsets(text));
    const std::size_t first = 1 + m_dice.Below(m_trusted.LineCount()), last = first + m_dice.Below(3);
    const std::string piece = Piece(6);
    switch (m_dice.Below(9)) {
      case 0:
        if (m_dice.Chance(70)) return "nothing";
        Both([&](platform::TextControl& c) { c.SetText(piece); });
        return "SetText";
      case 1:
      case 2: {
        const std::vector<rich_text::ColourRun> runs = Runs(text);
        Both([&](platform::TextControl& c) { c.SetColours(colours, runs); });
        return "SetColours";
      }
      case 3: {
        const std::string other_ = m_dice.Chance(50) ? text : piece + text;
        const std::string rtf = rich_text::WriteRtf({other_, colours, Runs(other_)}, "Courier New");
        Both([&](platform::TextControl& c) { c.SetTextRTF(rtf); });
        return "SetTextRTF";
      }
      case 4: {
        const std::size_t start = m_trusted.LineStart(first);
        const std::string lines = text.substr(start, rich_text::FindLineEnd(text, m_trusted.LineStart(last)) - start);
        const std::string rtf = rich_text::WriteRtf({lines, colours, Runs(lines)}, "Courier New");
        Both([&](platform::TextControl& c) { c.SetLinesRTF(first, last, rtf); });
        return "SetLinesRTF";
      }
      default:
        Both([&](platform::TextControl& c) { c.SetSelStart(std::min(offset, other)); });
        if (m_dice.Chance(50))
          Both([&](platform::TextControl& c) { c.SetSelLength(std::max(offset, other) - std::min(offset, other)); });
        if (m_dice.Chance(60)) Both([&](platform::TextControl& c) { c.SetSelText(piece); });
        return "selection";
    }
  }

  void Compare() {
    EXPECT_EQ(m_tested.Text(), m_trusted.Text());
    EXPECT_EQ(m_tested.SelStart(), m_trusted.SelStart());
    EXPECT_EQ(m_tested.SelLength(), m_trusted.SelLength());
    EXPECT_EQ(m_tested.TextRTF(), m_trusted.TextRTF());
    EXPECT_EQ(m_tested.SelRTF(), m_trusted.SelRTF());
    EXPECT_EQ(m_tested.LineEnd(), m_trusted.LineEnd());
    const std::size_t lines = m_trusted.LineCount();
    EXPECT_EQ(m_tested.LineCount(), lines);
    const std::size_t line = 1 + m_dice.Below(lines + 1), offset = m_dice.Pick(CuttingOffsets(m_trusted.Text()));
    EXPECT_EQ(m_tested.LineStart(line), m_trusted.LineStart(line));
    EXPECT_EQ(m_tested.LineOf(offset), m_trusted.LineOf(offset));
    EXPECT_EQ(m_tested.ColumnOf(offset), m_trusted.ColumnOf(offset));
    EXPECT_EQ(m_tested.LinesRTF(line, line + 1), m_trusted.LinesRTF(line, line + 1));
  }

  platform::TextControl& m_trusted;
  platform::TextControl& m_tested;
  laws::Dice m_dice;
};

}  // namespace tests
