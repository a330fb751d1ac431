#pragma once
// Keys as the program's rules name them, and what the keys of the text control do by themselves.

#include <QKeyEvent>

namespace platform::qt {

/// The virtual code of the event's key (8 Backspace, 9 Tab, 13 Enter, 37 Left, letters and digits their upper-case
/// character, 112 F1 …); 0 for a key that has none.
int VirtualKey(const QKeyEvent& event);

/// The modifiers added up as in platform::Shift.
int ShiftOf(Qt::KeyboardModifiers modifiers);

/// The character that the key types, control characters of Enter, Tab, Backspace and Esc included; several only where
/// one key gives several; empty for a key that types nothing.
std::u32string TypedCharacters(const QKeyEvent& event);

/// The editing component's command for the key, such as moving the caret a word to the left; 0 for none.
unsigned CommandOf(const QKeyEvent& event);

}  // namespace platform::qt
