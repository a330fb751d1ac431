#include "platform/qt/KeyCodes.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/TextControl.h"
#include "platform/qt/ScintillaBase.h"

namespace platform::qt {
namespace {

using Scintilla = QsciScintillaBase;

struct KeyNumber {
  int Key, Code;
};

constexpr auto NamedKeys = std::to_array<KeyNumber>({
    {Qt::Key_Backspace, 8},      {Qt::Key_Tab, 9},          {Qt::Key_Backtab, 9},       {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},        {Qt::Key_Enter, 13},       {Qt::Key_Shift, 16},        {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},           {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20},     {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},         {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34},     {Qt::Key_End, 35},
    {Qt::Key_Home, 36},          {Qt::Key_Left, 37},        {Qt::Key_Up, 38},           {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},          {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},       {Qt::Key_Delete, 46},
    {Qt::Key_Menu, 93},          {Qt::Key_NumLock, 144},    {Qt::Key_ScrollLock, 145},  {Qt::Key_Semicolon, 186},
    {Qt::Key_Equal, 187},        {Qt::Key_Comma, 188},      {Qt::Key_Minus, 189},       {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},        {Qt::Key_QuoteLeft, 192},  {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_Apostrophe, 222},
});

constexpr auto KeypadKeys = std::to_array<KeyNumber>({
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110},
    {Qt::Key_Slash, 111},
});

int CodeIn(std::span<const KeyNumber> keys, int key) {
  const auto found = std::find_if(keys.begin(), keys.end(), [&](const KeyNumber& k) { return k.Key == key; });
  return found == keys.end() ? 0 : found->Code;
}

struct KeyCommand {
  int Key;
  unsigned Plain, Shifted, Ctrl, CtrlShifted;
};

// Home and End know wrapped lines: they go to the edge of what is seen first.
constexpr auto Commands = std::to_array<KeyCommand>({
    {Qt::Key_Left, Scintilla::SCI_CHARLEFT, Scintilla::SCI_CHARLEFTEXTEND, Scintilla::SCI_WORDLEFT,
     Scintilla::SCI_WORDLEFTEXTEND},
    {Qt::Key_Right, Scintilla::SCI_CHARRIGHT, Scintilla::SCI_CHARRIGHTEXTEND, Scintilla::SCI_WORDRIGHT,
     Scintilla::SCI_WORDRIGHTEXTEND},
    {Qt::Key_Up, Scintilla::SCI_LINEUP, Scintilla::SCI_LINEUPEXTEND, Scintilla::SCI_LINESCROLLUP,
     Scintilla::SCI_PARAUPEXTEND},
    {Qt::Key_Down, Scintilla::SCI_LINEDOWN, Scintilla::SCI_LINEDOWNEXTEND, Scintilla::SCI_LINESCROLLDOWN,
     Scintilla::SCI_PARADOWNEXTEND},
    {Qt::Key_Home, Scintilla::SCI_VCHOMEWRAP, Scintilla::SCI_VCHOMEWRAPEXTEND, Scintilla::SCI_DOCUMENTSTART,
     Scintilla::SCI_DOCUMENTSTARTEXTEND},
    {Qt::Key_End, Scintilla::SCI_LINEENDWRAP, Scintilla::SCI_LINEENDWRAPEXTEND, Scintilla::SCI_DOCUMENTEND,
     Scintilla::SCI_DOCUMENTENDEXTEND},
    {Qt::Key_PageUp, Scintilla::SCI_PAGEUP, Scintilla::SCI_PAGEUPEXTEND, 0, 0},
    {Qt::Key_PageDown, Scintilla::SCI_PAGEDOWN, Scintilla::SCI_PAGEDOWNEXTEND, 0, 0},
    {Qt::Key_Backspace, Scintilla::SCI_DELETEBACK, Scintilla::SCI_DELETEBACK, Scintilla::SCI_DELWORDLEFT,
     Scintilla::SCI_DELLINELEFT},
    {Qt::Key_Delete, Scintilla::SCI_CLEAR, Scintilla::SCI_CUT, Scintilla::SCI_DELWORDRIGHT,
     Scintilla::SCI_DELLINERIGHT},
    {Qt::Key_Insert, 0, Scintilla::SCI_PASTE, Scintilla::SCI_COPY, 0},
    {Qt::Key_A, 0, 0, Scintilla::SCI_SELECTALL, 0},
    {Qt::Key_C, 0, 0, Scintilla::SCI_COPY, 0},
    {Qt::Key_V, 0, 0, Scintilla::SCI_PASTE, 0},
    {Qt::Key_X, 0, 0, Scintilla::SCI_CUT, 0},
});

}  // namespace

int VirtualKey(const QKeyEvent& event) {
  const int key = event.key();
  const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return keypad ? 96 + key - Qt::Key_0 : key;
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + key - Qt::Key_F1;
  const int code = keypad ? CodeIn(KeypadKeys, key) : 0;
  return code != 0 ? code : CodeIn(NamedKeys, key);
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? Shift::ShiftKey : 0) +
         (modifiers.testFlag(Qt::ControlModifier) ? Shift::Ctrl : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? Shift::Alt : 0);
}

std::u32string TypedCharacters(const QKeyEvent& event) {
  const int shift = ShiftOf(event.modifiers());
  const bool commandKeys = (shift & (Shift::Ctrl | Shift::Alt)) != 0 || event.modifiers().testFlag(Qt::MetaModifier);
  if (!commandKeys) {
    const int code = VirtualKey(event);
    if (code == 8 || code == 9 || code == 13 || code == 27) return {static_cast<char32_t>(code)};
  }
  // Ctrl and Alt together are how some keyboards type the characters of the third level.
  if (commandKeys && (shift & (Shift::Ctrl | Shift::Alt)) != (Shift::Ctrl | Shift::Alt)) return {};
  const std::u32string text = event.text().toStdU32String();
  return !text.empty() && text[0] >= 0x20 && text[0] != 0x7F ? text : std::u32string();
}

unsigned CommandOf(const QKeyEvent& event) {
  const int shift = ShiftOf(event.modifiers());
  if ((shift & Shift::Alt) != 0 || event.modifiers().testFlag(Qt::MetaModifier)) return 0;
  const auto command =
      std::find_if(Commands.begin(), Commands.end(), [&](const KeyCommand& c) { return c.Key == event.key(); });
  if (command == Commands.end()) return 0;
  if ((shift & Shift::Ctrl) != 0) return (shift & Shift::ShiftKey) != 0 ? command->CtrlShifted : command->Ctrl;
  return (shift & Shift::ShiftKey) != 0 ? command->Shifted : command->Plain;
}

}  // namespace platform::qt
