#include "aids/SynonymRows.h"

#include <algorithm>

namespace aids {

SynonymRows::SynonymRows(const templates::KeyedCollection<templates::Synonym>& synonyms) {
  for (const auto& synonym : synonyms) m_rows.push_back(*synonym);
  if (!m_rows.empty()) m_selected = 0;
}

void SynonymRows::SetWord(const std::string& text) {
  if (m_selected) m_rows[*m_selected].Word = text;
}

void SynonymRows::SetSynonym(const std::string& text) {
  if (m_selected) m_rows[*m_selected].Synonym = text;
}

void SynonymRows::New() {
  m_rows.push_back({"new", "(click to select, then edit below)"});
  m_selected = m_rows.size() - 1;
}

void SynonymRows::Delete() {
  if (!m_selected) return;
  m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*m_selected));
  if (m_rows.empty())
    m_selected = std::nullopt;
  else
    m_selected = std::min(*m_selected, m_rows.size() - 1);
}

}  // namespace aids
