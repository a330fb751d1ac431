#include "editor/ViewKeeper.h"

namespace editor {

void ViewKeeper::SaveView() {
  m_selStart = m_control.SelStart();
  m_selLength = m_control.SelLength();
  m_vertical = m_control.VerticalScroll();
  m_horizontal = m_control.HorizontalScroll();
  m_control.SetEnabled(false);
  m_control.SetRedraw(false);
}

void ViewKeeper::RestoreView() {
  m_control.SetEnabled(true);
  // Setting an unchanged selection would still scroll the caret into view and tell the listener.
  if (m_control.SelStart() != m_selStart || m_control.SelLength() != m_selLength) {
    m_control.SetSelStart(m_selStart);
    m_control.SetSelLength(m_selLength);
  }
  m_control.SetVerticalScroll(m_vertical);
  m_control.SetHorizontalScroll(m_horizontal);
  m_control.SetRedraw(true);
  m_control.Refresh();
}

}  // namespace editor
