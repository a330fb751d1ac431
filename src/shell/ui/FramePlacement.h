#pragma once
// The frame's place on the screen, between the toolkit's pixels and the twips of the settings.

#include "settings/SettingsStore.h"

class QWidget;

namespace shell::ui {

/// Puts the window where the settings say, on a screen that exists, without showing it.
void ApplyPlace(QWidget& window, const settings::FramePlace& place);

/// Shows the window in the state of the settings.
void ShowInState(QWidget& window, settings::WindowState state);

/// Takes the window's state over, and its place while it is in the normal state.
void RememberPlace(const QWidget& window, settings::FramePlace& place);

/// The main screen's size in twips.
settings::ScreenSize MainScreen();

}  // namespace shell::ui
