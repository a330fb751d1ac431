#include "platform/PairRows.h"

#include <algorithm>

namespace platform {

void PairRows::SetFirst(const std::string& text) {
  if (m_selected) m_rows[*m_selected].First = text;
}

void PairRows::SetSecond(const std::string& text) {
  if (m_selected) m_rows[*m_selected].Second = text;
}

void PairRows::New() {
  m_rows.push_back({"new", "(click to select, then edit below)"});
}

void PairRows::Delete() {
  if (!m_selected) return;
  m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*m_selected));
  if (m_rows.empty())
    m_selected.reset();
  else
    m_selected = std::min(*m_selected, m_rows.size() - 1);
}

}  // namespace platform
