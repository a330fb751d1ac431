#include "settings/AssociationsModel.h"

#include <algorithm>

namespace settings {
namespace {

constexpr int TwipsAPixel = 15;
constexpr int Margin = 180 / TwipsAPixel;
constexpr int NarrowestExtension = 870 / TwipsAPixel;

}  // namespace

AssociationsModel::AssociationsModel(std::vector<templates::Template>& associations) : m_associations(associations) {
  for (const templates::Template& record : associations) m_rows.push_back({record.Extension, record.FileName});
}

void AssociationsModel::SetExtension(const std::string& text) {
  if (m_selected) m_rows[*m_selected].Extension = text;
}

void AssociationsModel::SetTemplate(const std::string& text) {
  if (m_selected) m_rows[*m_selected].Template = text;
}

void AssociationsModel::New() {
  m_rows.push_back({"new", "(click to select, then edit below)"});
}

void AssociationsModel::Delete() {
  if (!m_selected) return;
  m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*m_selected));
  if (m_rows.empty())
    m_selected.reset();
  else
    m_selected = std::min(*m_selected, m_rows.size() - 1);
}

void AssociationsModel::Accept() const {
  m_associations.clear();
  for (const Row& row : m_rows) m_associations.push_back({"", row.Extension, row.Template});
}

int AssociationsModel::ExtensionColumnWidth(int widestText) {
  return std::max(NarrowestExtension, widestText + Margin);
}

int AssociationsModel::TemplateColumnWidth(int widestText) {
  return widestText + Margin;
}

}  // namespace settings
