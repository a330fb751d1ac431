#pragma once
// Keeps the user's selection and scroll position while the program rewrites the text.

#include <cstddef>

#include "platform/TextControl.h"

namespace editor {

class ViewKeeper {
 public:
  /// The control must outlive the keeper.
  explicit ViewKeeper(platform::TextControl& control) : m_control(control) {}

  /// Remembers selection and scroll positions, disables the control and stops its painting.
  void SaveView();

  /// Enables the control, puts selection and scroll positions back, and paints again.
  void RestoreView();

 private:
  platform::TextControl& m_control;
  std::size_t m_selStart = 0, m_selLength = 0;
  std::size_t m_vertical = 0, m_horizontal = 0;
};

}  // namespace editor
