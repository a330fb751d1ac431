#pragma once
// A text control in memory: the same contract as the real one, without a window, and simple enough to be trusted. Every
// call may cost as much as the text is long. The keyboard is played with Press, Type and Release.

#include <algorithm>
#include <string>
#include <vector>

#include "platform/TextControl.h"

namespace tests {

/// Hears everything and does nothing.
class SilentEvents : public platform::TextControlEvents {
 public:
  bool KeyDown(int, int) override { return false; }
  bool KeyPress(char32_t) override { return false; }
  void KeyUp(int, int) override {}
  void Change(const platform::TextChange&) override {}
  void SelChange() override {}
  bool MouseDown(int, int, int, int) override { return false; }
  void MouseUp(int, int, int, int) override {}
  void FilesDropped(const std::vector<std::string>&) override {}
};

class MemoryTextControl : public platform::TextControl {
 public:
  void SetEvents(platform::TextControlEvents* events) override { m_events = events; }

  std::size_t Length() const override { return m_text.size(); }
  std::string Text() const override { return m_text; }
  void SetText(std::string_view text) override;
  void Reserve(std::size_t bytes) override { m_reserved = bytes; }
  std::string TextRange(std::size_t start, std::size_t end) const override;
  std::string TextRTF() const override;
  void SetTextRTF(std::string_view rtf) override;

  std::size_t SelStart() const override { return m_selStart; }
  void SetSelStart(std::size_t start) override { Select(start, start); }
  std::size_t SelLength() const override { return m_selLength; }
  void SetSelLength(std::size_t length) override {
    Select(m_selStart, m_selStart + std::min(length, m_text.size() - m_selStart));
  }
  std::string SelText() const override { return m_text.substr(m_selStart, m_selLength); }
  void SetSelText(std::string_view text) override;
  std::size_t Caret() const override { return m_caretFirst ? m_selStart : m_selStart + m_selLength; }
  void Select(std::size_t anchor, std::size_t caret) override;
  std::string SelRTF() const override;

  std::size_t LineCount() const override { return Starts().size(); }
  std::size_t LineOf(std::size_t offset) const override;
  std::size_t LineStart(std::size_t line) const override;
  std::size_t ColumnOf(std::size_t offset) const override;
  std::string LinesRTF(std::size_t first, std::size_t last) const override;
  void SetLinesRTF(std::size_t first, std::size_t last, std::string_view rtf) override;
  std::string_view LineEnd() const override { return m_lineEnd; }

  void SetColours(const std::vector<rich_text::ColourValue>& colours, std::vector<rich_text::ColourRun> runs) override;

  /// Lines are LineHeight pixels high and characters CharacterWidth wide; nothing is scrolled.
  static constexpr int LineHeight = 16, CharacterWidth = 8;
  std::size_t OffsetAt(int x, int y) const override;
  bool Enabled() const override { return m_enabled; }
  void SetEnabled(bool enabled) override { m_enabled = enabled; }
  std::size_t VerticalScroll() const override { return m_vertical; }
  void SetVerticalScroll(std::size_t line) override { m_vertical = line; }
  std::size_t HorizontalScroll() const override { return m_horizontal; }
  void SetHorizontalScroll(std::size_t pixels) override { m_horizontal = pixels; }
  void SetRedraw(bool redraw) override { m_redraw = redraw; }
  void Refresh() override {}
  void SetWordWrap(bool on) override { m_wordWrap = on; }
  void SetFont(const platform::FontRecord& font) override { m_font = font; }
  void SetFocus() override { ++m_focusCalls; }

  /// A key goes down and, if nobody takes it, does what it does: Backspace, Tab, Enter and Esc also give their
  /// KeyPress; Delete, Left and Right act. True when somebody took it. A disabled control ignores the keyboard.
  bool Press(int keyCode, int shift = platform::Shift::None);
  void Release(int keyCode, int shift = platform::Shift::None);
  /// Presses and releases the keys of these characters.
  void Type(std::string_view characters);

  bool Redraw() const { return m_redraw; }
  bool WordWrap() const { return m_wordWrap; }
  const platform::FontRecord& Font() const { return m_font; }
  int FocusCalls() const { return m_focusCalls; }
  std::size_t Reserved() const { return m_reserved; }

 private:
  std::vector<std::size_t> Starts() const;
  /// Puts text in place of [start, end) and the caret at `caret`, and tells it.
  void Replace(std::size_t start, std::size_t end, std::string_view text, std::size_t caret);
  void TellSelection();
  bool TakesCharacter(char32_t character);
  void Erase(bool backwards);
  std::size_t Step(std::size_t offset, bool backwards) const;
  rich_text::StyledText Styled(std::size_t start, std::size_t end) const;
  std::size_t EndOfLine(std::size_t line) const;
  /// Colours from `start` on as in the text, which may differ in its line ends.
  void Paint(std::size_t start, const rich_text::StyledText& styled);

  platform::TextControlEvents* m_events = nullptr;
  std::string m_text;
  std::vector<std::int64_t> m_colours;  ///< one a byte, -1 for none
  std::string m_lineEnd = "\r\n";
  std::size_t m_selStart = 0, m_selLength = 0;
  bool m_caretFirst = false;
  std::size_t m_toldStart = 0, m_toldLength = 0;
  std::size_t m_vertical = 0, m_horizontal = 0;
  bool m_enabled = true, m_redraw = true, m_wordWrap = false;
  platform::FontRecord m_font;
  int m_focusCalls = 0;
  std::size_t m_reserved = 0;
};

}  // namespace tests
